#pragma once

#include "side/DictionaryModule.h"

#include <functional>
#include <string>
#include <string_view>

namespace velmarin {

class AnswerText;

/// Adds a row to a pop-up.
using AddPopupRow = std::function<void(const std::string& caption, const std::string& tag)>;

/// Shows what the module's last search found: as rows of a pop-up, whose caption and tag are separated by "__DLM__", or
/// at the insertion point of `area`, each hit under a heading with the dictionary's name, its headword in a larger
/// size. Calls `yield` after each. Without a place to show it, the user gets a message.
void mDisplayResult(DictionaryModule& module, std::string_view dictionaryName, bool toPopup, const AddPopupRow& popup,
                    AnswerText* area, const DictionaryModule::Yield& yield);

} // namespace velmarin
