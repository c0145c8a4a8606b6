#pragma once

#include <QElapsedTimer>
#include <QFrame>

#include <chrono>
#include <functional>

class QPushButton;

namespace velmarin {

/// A strip over the lower edge of a control that says what the program waits for, with a button to stop it. It appears
/// only after half a second, so that what answers at once shows nothing.
class WaitNotice : public QFrame {
    Q_OBJECT
  public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    /// `over` is a sibling; `clock` measures the wait, and tests pass one of their own.
    WaitNotice(const QString& text, QWidget* over, Clock clock);

    void begin();
    /// To be called while the wait lasts: shows the strip when it is time. False once the user has pressed Stop.
    bool goOn();
    void end();

    /// Does what the button does.
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
