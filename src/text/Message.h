#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace velmarin {

/// Receives the short messages of the core. The program shows them in a modal box, the command line writes them to
/// standard error, tests collect them.
using MessageHandler = std::function<void(std::string_view text)>;

/// Replaces the handler and returns the previous one. Without a handler, messages go to standard error.
MessageHandler setMessageHandler(MessageHandler handler);

/// Shows `text` (UTF-8) to the user. A modal handler returns when the user has closed the message.
void MsgBox(std::string_view text);

} // namespace velmarin
