#include "cli/StopSignals.h"

#include <csignal>

namespace velmarin {

namespace {

std::atomic<bool> stopAsked = false;
static_assert(std::atomic<bool>::is_always_lock_free); // so that a signal handler may set it

void onSignal(int) {
    stopAsked = true;
}

void setHandler(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    for (const int each : {SIGINT, SIGTERM, SIGHUP})
        ::sigaction(each, &action, nullptr);
}

} // namespace

StopSignals::StopSignals() {
    stopAsked = false;
    setHandler(onSignal);
}

StopSignals::~StopSignals() {
    setHandler(SIG_DFL);
}

const std::atomic<bool>& StopSignals::asked() const {
    return stopAsked;
}

} // namespace velmarin
