#pragma once

#include <QFrame>

class QPushButton;

namespace velmarin {

/// A strip over the lower edge of a control that says what the program waits for, with a button to stop waiting.
class WaitNotice : public QFrame {
    Q_OBJECT
  public:
    /// `over` is the control, a sibling of the strip.
    WaitNotice(const QString& text, QWidget* over);

    /// Shows the strip at the control's present place, or hides it.
    void setShown(bool shown);

    QPushButton* StopBT() const { return StopBT_; }

  signals:
    void stopRequested();

  private:
    QWidget* over_;
    QPushButton* StopBT_;
};

} // namespace velmarin
