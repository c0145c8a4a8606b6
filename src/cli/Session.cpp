#include "cli/Session.h"

namespace velmarin {

Session::Session(Output& out) : out_(out) {
    handlerBefore_ = setMessageHandler([this](std::string_view text) {
        couldNot(subject_.empty() ? std::string(text) : subject_ + ": " + std::string(text));
    });
}

Session::~Session() {
    setMessageHandler(std::move(handlerBefore_));
}

void Session::couldNot(std::string_view what) {
    if (reported_.emplace(what).second)
        complain(what);
}

void Session::couldNot(const Failure& failure) {
    couldNot(failure.item.path().native() + ": " + failure.reason);
}

} // namespace velmarin
