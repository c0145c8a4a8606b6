#include "side/StoppableWait.h"

namespace velmarin {

namespace {

constexpr std::chrono::milliseconds kShownAfter{500};

} // namespace

void StoppableWait::begin() {
    began_ = clock_();
    stopped_ = false;
}

bool StoppableWait::mayContinue() {
    if (!stopped_ && clock_() - began_ >= kShownAfter)
        show_(true);
    return !stopped_;
}

void StoppableWait::end() {
    show_(false);
}

} // namespace velmarin
