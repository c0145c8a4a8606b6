#pragma once

#include <QElapsedTimer>
#include <QFrame>

#include <chrono>
#include <functional>

class QPushButton;

namespace velmarin {

/// A strip over the lower edge of a control that says that something is waited for, and offers to stop it. It comes up
/// only after half a second, so that what answers at once shows nothing.
class WaitNotice : public QFrame {
    Q_OBJECT
  public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    /// `over` is a sibling; `clock` says how long the wait lasts, tests hand in one of their own.
    WaitNotice(const QString& text, QWidget* over, Clock clock);

    void begin();
    /// To be called while the wait lasts: shows the strip when it is time. False once the user wants no more of it.
    bool goOn();
    void end();

    /// As the user's button does.
    void stop() { stopped_ = true; }

    QPushButton* StopBT() const { return StopBT_; }

  private:
    QWidget* over_;
    Clock clock_;
    std::chrono::steady_clock::time_point began_;
    bool stopped_ = false;
    QPushButton* StopBT_;
};

} // namespace velmarin
