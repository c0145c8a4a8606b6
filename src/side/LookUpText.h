#pragma once

#include "files/FolderItem.h"
#include "side/ScriptRun.h"

#include <functional>
#include <string>
#include <string_view>

namespace velmarin {

/// Where the Latin program WORDS lies: the folder holds the program `words` and its data.
inline constexpr std::string_view kWordsFolder = "/usr/local/lib/words/";

/// The script that asks WORDS for `word`, or starts it without one where the word is empty. The word stands in it as it
/// is: a quote in it ends the quoting.
std::string wordsScript(std::string_view word, std::string_view folder = kWordsFolder);

/// Writes the script to "temp.sh" in the preferences folder and runs it. Raises NilObjectException where the file
/// cannot be written. For `goOn` see runScript.
ScriptResult runWords(const FolderItem& preferencesFolder, std::string_view word, const std::function<bool()>& goOn,
                      std::string_view folder = kWordsFolder);

/// What is appended to the text for an output of WORDS.
std::string wordsBlock(std::string_view output);

/// What is inserted for an answer of the dictionary service, which may be empty.
std::string serviceBlock(std::string_view word, std::string_view answer);

/// The line above a hit in a user dictionary, with the line ends around it.
std::string userDictionaryHeading(std::string_view dictionaryName);

} // namespace velmarin
