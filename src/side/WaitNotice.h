#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace velmarin {

/// A strip over the lower edge of a control that says what the program waits for, with a button to stop waiting.
class WaitNotice : public QFrame {
    Q_OBJECT
  public:
    /// `over` is the control, a sibling of the strip.
    explicit WaitNotice(QWidget* over);

    /// Shows the strip with this text at the control's present place.
    void showAbout(const QString& text);

    QPushButton* StopBT() const { return StopBT_; }

  signals:
    void stopRequested();

  private:
    QWidget* over_;
    QLabel* label_;
    QPushButton* StopBT_;
};

} // namespace velmarin
