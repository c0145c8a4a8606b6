#include "platform/Busy.h"

#include <algorithm>
#include <utility>

namespace velmarin {

BusyState::BusyState(Post post) : post_(std::move(post)), self_(std::make_shared<BusyState*>(this)) {}

void BusyState::whenFree(Action action) {
    if (!busy() && waiting_.empty()) {
        action();
        return;
    }
    waiting_.push_back(std::move(action));
    if (!busy())
        postNext();
}

void BusyState::whenStopped(Action action) {
    ++stopsWaiting_;
    whenFree([this, action = std::move(action)] {
        --stopsWaiting_;
        action();
    });
}

std::shared_ptr<void> BusyState::onChange(Listener listener) {
    auto kept = std::make_shared<Listener>(std::move(listener));
    listeners_.push_back(kept);
    return kept;
}

void BusyState::begin() {
    if (++guards_ == 1)
        tell(true);
}

void BusyState::end() {
    if (--guards_ > 0)
        return;
    tell(false);
    if (!waiting_.empty())
        postNext();
}

void BusyState::tell(bool busy) {
    std::erase_if(listeners_, [](const auto& listener) { return listener.expired(); });
    // A copy, since a listener may add or drop listeners.
    const auto told = listeners_;
    for (const auto& listener : told)
        if (const auto alive = listener.lock())
            (*alive)(busy);
}

void BusyState::postNext() {
    if (posted_)
        return;
    posted_ = true;
    post_([self = std::weak_ptr<BusyState*>(self_)] {
        if (const auto alive = self.lock())
            (*alive)->runNext();
    });
}

void BusyState::runNext() {
    posted_ = false;
    // This may run inside a loop that began meanwhile; the end of that loop posts again.
    if (busy() || waiting_.empty())
        return;
    const Action action = std::move(waiting_.front());
    waiting_.pop_front();
    if (!waiting_.empty())
        postNext();
    action();
}

} // namespace velmarin
