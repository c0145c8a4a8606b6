#pragma once

#include <chrono>
#include <functional>
#include <utility>

namespace velmarin {

/// A wait that the user can stop. It is shown only after half a second, so that quick answers show nothing.
class StoppableWait {
  public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;
    /// Shows the wait or hides it. Called repeatedly with true, because the covered control may move.
    using Show = std::function<void(bool shown)>;

    StoppableWait(Clock clock, Show show) : clock_(std::move(clock)), show_(std::move(show)) {}

    void begin();
    /// Call repeatedly during the wait; shows it when it is time. False once `stop` was called.
    bool mayContinue();
    void stop() { stopped_ = true; }
    void end();

  private:
    Clock clock_;
    Show show_;
    std::chrono::steady_clock::time_point began_;
    bool stopped_ = false;
};

} // namespace velmarin
