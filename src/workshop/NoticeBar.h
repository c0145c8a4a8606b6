#pragma once

#include <QFrame>

#include <functional>

class QLabel;
class QPushButton;

namespace velmarin {

/// A line above the work that says what the user has to know, with a button for what can be done about it. It stays
/// until another one replaces it or it is closed.
class NoticeBar : public QFrame {
    Q_OBJECT
  public:
    explicit NoticeBar(QWidget* parent);

    void tell(const QString& text);
    void tell(const QString& text, const QString& button, std::function<void()> action);
    QString text() const;

  private:
    QLabel* label_;
    QPushButton *action_, *close_;
    std::function<void()> onAction_;
};

} // namespace velmarin
