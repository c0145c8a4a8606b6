#include "cli/IndexCheck.h"

#include "cli/LineCheck.h"
#include "text/UnicodeForms.h"
#include "text/Utf8.h"

namespace velmarin {

namespace {

constexpr char32_t kFirstPrivateUse = 0xE000;
constexpr char32_t kLastPrivateUse = 0xF8FF;
constexpr char32_t kFirstSpecial = 0xFFF0;
constexpr char32_t kFirstPrivatePlane = 0xF0000;

bool isPrivate(char32_t unit) {
    return (unit >= kFirstPrivateUse && unit <= kLastPrivateUse) || (unit >= kFirstSpecial && unit < 0x10000) ||
           (unit >= kFirstPrivatePlane && unit < kInvalidByteUnit);
}

/// ASCII punctuation, as between the numbers of "99-99".
bool isAsciiMark(char32_t unit) {
    return unit < 0x80 && !(unit >= '0' && unit <= '9') && !(unit >= 'A' && unit <= 'Z');
}

std::size_t unitCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++count)
        at += decodeUtf8(text, at).length;
    return count;
}

/// Whether a line has a letter and a combining mark where keyboards type one composed character, so that input has
/// another search word. (NFC also replaces some single characters; keyboards may type these, so they do not count.)
bool isDecomposed(const std::string& line, const std::string& word, const IndexOrder& order) {
    const std::string composed = composedForm(line);
    return composed != line && unitCount(composed) < unitCount(line) && indexSearchWord(composed, order) != word;
}

} // namespace

bool isClosingWord(std::string_view searchWord) {
    char32_t letter = 0;
    std::size_t count = 0;
    for (std::size_t at = 0; at < searchWord.size();) {
        const Utf8Unit unit = decodeUtf8(searchWord, at);
        if (at == 0 && isPrivate(unit.value))
            return true;
        at += unit.length;
        if (isAsciiMark(unit.value))
            continue;
        if (count > 0 && unit.value != letter)
            return false;
        letter = unit.value;
        ++count;
    }
    return count >= 2;
}

std::optional<IndexSummary> checkIndex(const FolderItem& ind, const IndexOrder& order, Findings& findings) {
    std::string before;
    const auto lines = checkLines(ind, findings, [&](const std::string& line, std::uint64_t number) {
        std::string word = indexSearchWord(line, order);
        if (number > 1 && word < before)
            findings.push_back({ind.path(), number,
                                "out of order: " + inQuotes(word) + " sorts before " + inQuotes(before) + " of line " +
                                    std::to_string(number - 1)});
        if (isDecomposed(line, word, order))
            findings.push_back({ind.path(), number,
                                "is in decomposed Unicode (NFD): input in composed form (NFC), as most keyboards "
                                "give it, does not find it"});
        before = std::move(word);
    });
    if (!lines)
        return std::nullopt;
    const IndexSummary summary = {.lines = *lines, .hasClosingEntry = isClosingWord(before)};
    if (summary.lines == 0)
        findings.push_back({ind.path(), 0, "has no entries"});
    else if (!summary.hasClosingEntry)
        findings.push_back({ind.path(), summary.lines,
                            "no closing entry: the last one, " + inQuotes(before) +
                                ", is never shown; one that sorts after all others should follow it"});
    return summary;
}

} // namespace velmarin
