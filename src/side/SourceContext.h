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

/// What a source may use: all of it outlives the sources.
struct SourceContext {
    LookUpPort& lookUp;
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
