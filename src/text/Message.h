#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace velmarin {

/// Where the core's own short messages go. The program shows them in a modal box, the command line writes them to
/// standard error, tests collect them.
using MessageHandler = std::function<void(std::string_view text)>;

/// Replaces the handler and returns the one before it. With none set, messages go to standard error.
MessageHandler setMessageHandler(MessageHandler handler);

/// Tells the user `text` (UTF-8) and returns when it has been seen.
void MsgBox(std::string_view text);

} // namespace velmarin
