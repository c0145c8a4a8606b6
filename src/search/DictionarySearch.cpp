#include "search/DictionarySearch.h"

#include "store/Fi_Module.h"
#include "text/Grep.h"
#include "text/StringRules.h"

#include <algorithm>

namespace velmarin {

namespace {

std::string readTxtLine(DictionaryItem& item, std::size_t number) {
    const IndexedTextFile::Line line = item.txtLines.line(number);
    if (line.status != IndexedTextFile::Status::NoFile)
        return line.text;
    // The plain reader owns the messages about a file that is not there.
    std::vector<std::string> lines;
    const int n = static_cast<int>(number);
    mFiMod_GetTextFiLinesByLineNums(item.TxtFi, {n, n}, lines);
    return Join(lines, "\r");
}

bool independentAt(const std::vector<std::shared_ptr<DictionaryItem>>& dictionaries, int index) {
    return index >= 0 && index < static_cast<int>(dictionaries.size()) &&
           dictionaries[static_cast<std::size_t>(index)]->Independent;
}

} // namespace

TxtLine parseTxtLine(std::string_view line) {
    TxtLine result;
    std::string text(line.substr(0, kLongestTxtLine));
    if (text.find("<@_") != std::string::npos)
        result.imageName = mStrMod_GrepMBS_Find(0, text, pageMarkerPattern);
    constexpr std::string_view opening = "<^_";
    constexpr std::string_view closing = "_>";
    while (text.find(opening) != std::string::npos && mStrMod_GrepMBS_Search(0, text, errataMarkerPattern) != 0) {
        const std::string marker = mStrMod_GrepMBS_FoundStr();
        const std::size_t at = text.find(marker);
        if (at == std::string::npos)
            break;
        result.errata.push_back(marker.substr(opening.size(), marker.size() - opening.size() - closing.size()));
        // With the marker out, the next can begin at most in the two characters before the gap.
        const std::size_t kept = std::min(at, opening.size() - 1);
        text = text.substr(at - kept, kept) + text.substr(at + marker.size());
    }
    return result;
}

SearchResult searchDictionary(std::string_view query, DictionaryItem& item, SearchForm form) {
    // The index holds upper-case forms, so the query's word is compared as one: a digraph that was encoded after the
    // common form stands in it in small letters.
    const std::string word = Uppercase(querySearchWord(query, item.order, form == SearchForm::List));
    SearchResult result;
    result.place = item.IND.firstGreater(word);
    if (result.place == item.IND.size())
        return result;
    result.outcome = result.place == 0 ? SearchOutcome::Before : SearchOutcome::Hit;
    // Entries count from 0 and lines from 1: the number of the first greater entry is the line of the one before it.
    result.line = parseTxtLine(readTxtLine(item, result.place));
    return result;
}

bool takesPart(const std::vector<std::shared_ptr<DictionaryItem>>& dictionaries, int index, int front) {
    return index == front || (!independentAt(dictionaries, index) && !independentAt(dictionaries, front));
}

} // namespace velmarin
