#include "search/DictionarySearch.h"

#include "store/TextFileLines.h"
#include "text/LetterCase.h"
#include "text/Message.h"
#include "text/NilObjectException.h"
#include "text/StringFields.h"

#include <string>
#include <vector>

namespace velmarin {

namespace {

std::string readTxtLine(DictionaryItem& item, std::size_t number) {
    try {
        const IndexedTextFile::Line line = item.txtLines.line(number);
        if (line.status != IndexedTextFile::Status::NoFile)
            return line.text;
        // The plain reader reports a missing file.
        std::vector<std::string> lines;
        const int n = static_cast<int>(number);
        mFiMod_GetTextFiLinesByLineNums(item.TxtFi, {n, n}, lines);
        return Join(lines, "\r");
    } catch (const NilObjectException& unreadable) {
        MsgBox(unreadable.what());
        return {};
    }
}

bool independentAt(const std::vector<std::shared_ptr<DictionaryItem>>& dictionaries, int index) {
    return index >= 0 && index < static_cast<int>(dictionaries.size()) &&
           dictionaries[static_cast<std::size_t>(index)]->Independent;
}

} // namespace

SearchResult searchDictionary(std::string_view query, DictionaryItem& item, SearchForm form) {
    // The index holds upper-case forms, but the Spanish order encodes digraphs as small letters.
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
