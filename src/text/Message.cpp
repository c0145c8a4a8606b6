#include "text/Message.h"

#include <cstdio>
#include <string>
#include <utility>

namespace velmarin {

namespace {

MessageHandler& currentHandler() {
    static MessageHandler handler;
    return handler;
}

} // namespace

MessageHandler setMessageHandler(MessageHandler handler) {
    return std::exchange(currentHandler(), std::move(handler));
}

void MsgBox(std::string_view text) {
    // A copy: a modal box runs an event loop, in which the handler may be replaced.
    const MessageHandler handler = currentHandler();
    if (handler) {
        handler(text);
        return;
    }
    const std::string line = std::string(text) + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

} // namespace velmarin
