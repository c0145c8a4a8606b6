#include "search/DictionarySearch.h"

#include "store/TextFileLines.h"
#include "text/LetterCase.h"
#include "text/StringFields.h"

#include <algorithm>
#include <optional>

namespace velmarin {

namespace {

constexpr std::string_view kPageOpening = "<@_";
constexpr std::string_view kErrataOpening = "<^_";
constexpr std::string_view kClosing = "_>";

/// The name that begins at `begin`: at least one character, up to the next closing.
std::optional<std::string_view> nameAt(std::string_view text, std::size_t begin) {
    const std::size_t end = text.find(kClosing, begin + 1);
    if (end == std::string_view::npos)
        return std::nullopt;
    return text.substr(begin, end - begin);
}

std::string readTxtLine(DictionaryItem& item, std::size_t number) {
    const IndexedTextFile::Line line = item.txtLines.line(number);
    if (line.status != IndexedTextFile::Status::NoFile)
        return line.text;
    // The plain reader reports a missing file.
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
    if (const std::size_t at = line.find(kPageOpening); at != std::string_view::npos)
        result.imageName = nameAt(line, at + kPageOpening.size()).value_or("");
    // What remains before the current place with the markers removed. An opening can begin there and end in `rest`.
    std::string before;
    std::string_view rest = line;
    while (true) {
        std::size_t nameBegins = 0;
        const std::size_t tail = std::min(before.size(), kErrataOpening.size() - 1);
        const std::string seam = before.substr(before.size() - tail) + std::string(rest.substr(0, 2));
        if (const std::size_t across = seam.find(kErrataOpening); across != std::string::npos) {
            nameBegins = across + kErrataOpening.size() - tail;
            before.resize(before.size() - (tail - across));
        } else if (const std::size_t at = rest.find(kErrataOpening); at != std::string_view::npos) {
            nameBegins = at + kErrataOpening.size();
            before += rest.substr(0, at);
        } else {
            break;
        }
        const auto name = nameAt(rest, nameBegins);
        if (!name)
            break;
        result.errata.emplace_back(*name);
        rest.remove_prefix(nameBegins + name->size() + kClosing.size());
    }
    return result;
}

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
