#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <vector>

namespace velmarin {

/// Knows whether a loop that pumps events is running, so that commands that would delete what it works on can
/// be refused (`busy()`), greyed out (`onChange`) or delayed to its end (`whenFree`). Owned by the application object
/// and passed on by reference; used on the main thread only.
class BusyState {
  public:
    using Action = std::function<void()>;
    using Listener = std::function<void(bool busy)>;
    /// Runs the given action later, from the event loop, and never before it returns itself. See EventLoopPost.h.
    using Post = std::function<void(Action)>;

    explicit BusyState(Post post);
    BusyState(const BusyState&) = delete;
    BusyState& operator=(const BusyState&) = delete;

    bool busy() const { return guards_ > 0; }

    /// Runs `action` at once if nothing is under way and nothing waits. Otherwise it waits: after the last guard has
    /// ended, the waiting actions run from the event loop in their order, one per turn of the loop, so the owner of the
    /// guard finishes first. While a new guard is held, they continue to wait. An exception reaches the event loop, and
    /// the next actions still run. An action can outlive its caller and must check that its objects still exist.
    void whenFree(Action action);

    /// Like whenFree, for an action that closes a window or ends the run. While it waits, `stopWanted()` is true.
    void whenStopped(Action action);
    /// Work that may never end by itself, such as waiting for another program, gives up as soon as this is true.
    bool stopWanted() const { return stopsWaiting_ > 0; }

    /// `listener` is told true as the first guard begins and false as the last one ends, until the returned handle is
    /// dropped. It must not throw.
    [[nodiscard]] std::shared_ptr<void> onChange(Listener listener);

  private:
    friend class Busy;

    void begin();
    void end();
    void tell(bool busy);
    void postNext();
    void runNext();

    Post post_;
    int guards_ = 0;
    int stopsWaiting_ = 0;
    bool posted_ = false;
    std::deque<Action> waiting_;
    std::vector<std::weak_ptr<Listener>> listeners_;
    std::shared_ptr<BusyState*> self_; // tells a posted turn whether the state still exists
};

/// Held by a loop that pumps events, while it runs. Guards nest.
class Busy {
  public:
    explicit Busy(BusyState& state) : state_(state) { state_.begin(); }
    ~Busy() { state_.end(); }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

  private:
    BusyState& state_;
};

} // namespace velmarin
