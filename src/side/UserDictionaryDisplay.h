#pragma once

#include "side/DictionaryModule.h"

#include <functional>
#include <string>
#include <string_view>

namespace velmarin {

class AnswerText;

/// Adds a row to a pop-up.
using AddPopupRow = std::function<void(const std::string& caption, const std::string& tag)>;

/// Shows what the module's last search found, and calls `yield` after each hit. With `toPopup` each hit is a row of the
/// pop-up; "__DLM__" separates its caption from its tag. Otherwise each hit is inserted at the insertion point of
/// `area` under a heading with the dictionary's name, the headword in a larger size. Without a place to show the hits,
/// the user gets a message.
void mDisplayResult(DictionaryModule& module, std::string_view dictionaryName, bool toPopup, const AddPopupRow& popup,
                    AnswerText* area, const DictionaryModule::Yield& yield);

} // namespace velmarin
