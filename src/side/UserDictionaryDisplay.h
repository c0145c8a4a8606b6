#pragma once

#include "platform/Host.h"
#include "side/DictionaryModule.h"

#include <string_view>

namespace velmarin {

class PopupMenu;
class TextArea;

/// Shows what the module's last search found: as rows of a pop-up, caption and tag (a std::string) parted by "__DLM__",
/// or at the insertion point of a text, each hit under a heading with the dictionary's name, its head word large. Lets
/// events run after each. Where neither is given this is told to the user.
void mDisplayResult(DictionaryModule& module, std::string_view dictionaryName, bool toPopup, PopupMenu* popup,
                    TextArea* area, Host& host);

} // namespace velmarin
