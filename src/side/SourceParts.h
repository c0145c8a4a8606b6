#pragma once

#include <string>

namespace velmarin {

class AnswerText;
class BusyState;
class DictionaryService;
class FolderItem;
class Host;
class LookUpPort;
class UserDictionaryList;

/// What the sources of a side window are made from. All of it outlives them.
struct SourceParts {
    LookUpPort& run;
    AnswerText& text;
    Host& host;
    BusyState& busy;
    const DictionaryService& dictionaries;
    /// Where WORDS gets its script.
    const FolderItem& preferencesFolder;
    /// Where WORDS is installed.
    const std::string& wordsFolder;
    const UserDictionaryList& userDictionaries;
};

} // namespace velmarin
