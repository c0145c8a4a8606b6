#include "side/DictdIndex.h"

#include "text/CharacterFolding.h"
#include "text/FindReplace.h"
#include "text/LetterCase.h"
#include "text/StringFields.h"
#include "text/Utf8.h"

#include <algorithm>

#include <utf8proc.h>

namespace velmarin {

namespace {

/// The bisection ends when this much of the index is left; that is read line by line.
constexpr std::uint64_t kBlock = 128;

bool isAsciiLetterOrDigit(char c) {
    return (c >= '0' && c <= '9') || (asciiCapital(c) >= 'A' && asciiCapital(c) <= 'Z');
}

char asciiSmall(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c;
}

/// The number, most significant digit first; nullopt if it has another character or is too large.
std::optional<std::uint64_t> base64Number(std::string_view text) {
    constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    constexpr std::size_t kMostDigits = 10;
    if (text.empty() || text.size() > kMostDigits)
        return std::nullopt;
    std::uint64_t value = 0;
    for (const char c : text) {
        const std::size_t digit = kDigits.find(c);
        if (digit == std::string_view::npos)
            return std::nullopt;
        value = value << 6 | digit;
    }
    return value;
}

std::optional<DictdPlace> placeOf(std::string_view line) {
    const auto offset = base64Number(NthField(line, "\t", 2));
    const auto size = base64Number(NthField(line, "\t", 3));
    if (!offset || !size)
        return std::nullopt;
    return DictdPlace{*offset, *size};
}

std::string_view wordOf(std::string_view line) {
    return line.substr(0, line.find('\t'));
}

std::string_view withoutEndBlanks(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

bool describesDictionary(std::string_view word) {
    return word.starts_with("00-database") || word.starts_with("00database");
}

/// Only letters with their marks, digits and blanks are kept.
std::string lettersAndDigits(std::string_view text) {
    std::string kept;
    for (std::size_t pos = 0; pos < text.size();) {
        const Utf8Unit unit = decodeUtf8(text, pos);
        const auto category = unit.value < kInvalidByteUnit
                                  ? utf8proc_category(static_cast<utf8proc_int32_t>(unit.value))
                                  : UTF8PROC_CATEGORY_CN;
        if ((category >= UTF8PROC_CATEGORY_LU && category <= UTF8PROC_CATEGORY_NO) || category == UTF8PROC_CATEGORY_ZS)
            kept += text.substr(pos, unit.length);
        pos += unit.length;
    }
    return kept;
}

/// In ISO 8859-1; nullopt if that lacks a character.
std::optional<std::string> latin1(std::string_view text) {
    std::string bytes;
    for (std::size_t pos = 0; pos < text.size();) {
        const Utf8Unit unit = decodeUtf8(text, pos);
        if (unit.value > 0xFF)
            return std::nullopt;
        bytes += static_cast<char>(unit.value);
        pos += unit.length;
    }
    return bytes;
}

/// Without blanks at the ends, and with one blank for several inside.
std::string squeezed(std::string_view text) {
    std::string result;
    for (const char c : text)
        if (c != ' ' || (!result.empty() && result.back() != ' '))
            result += c;
    if (!result.empty() && result.back() == ' ')
        result.pop_back();
    return result;
}

} // namespace

std::optional<DictdIndex> DictdIndex::open(const FolderItem& file) {
    auto opened = ReadOnlyFile::open(file);
    if (!opened)
        return std::nullopt;
    DictdIndex index(std::move(*opened));
    index.readFlags();
    return index;
}

std::string DictdIndex::key(std::string_view word) const {
    std::string key;
    for (const char c : word)
        if (allChars_ || isAsciiLetterOrDigit(c) || c == ' ' || !isAscii(c))
            key += caseSensitive_ ? c : asciiSmall(c);
    return key;
}

std::optional<DictdIndex::Line> DictdIndex::lineAt(std::uint64_t begin) const {
    std::string text;
    while (text.size() < kLongestLine && begin + text.size() < size_) {
        char block[256];
        const std::size_t got = file_.readOrRaise(begin + text.size(), block, sizeof block);
        if (got == 0)
            break;
        const std::string_view read(block, got);
        const std::size_t end = read.find('\n');
        text += read.substr(0, end);
        if (end != std::string_view::npos) {
            const std::uint64_t next = begin + text.size() + 1;
            return Line{std::move(text), next};
        }
    }
    if (text.empty() || text.size() >= kLongestLine)
        return std::nullopt;
    return Line{std::move(text), size_};
}

std::uint64_t DictdIndex::lineStartAfter(std::uint64_t position, std::uint64_t limit) const {
    while (position < limit) {
        char block[256];
        const std::size_t got =
            file_.readOrRaise(position, block, std::min<std::uint64_t>(sizeof block, limit - position));
        if (got == 0)
            break;
        const std::size_t end = std::string_view(block, got).find('\n');
        if (end != std::string_view::npos)
            return position + end + 1;
        position += got;
    }
    return limit;
}

std::uint64_t DictdIndex::lowerBound(std::string_view key) const {
    std::uint64_t low = 0; // no line before this one is the first that is not less
    std::uint64_t high = size_;
    while (high - low > kBlock) {
        const std::uint64_t half = low + (high - low) / 2;
        const std::uint64_t middle = lineStartAfter(half, high);
        const auto line = middle < high ? lineAt(middle) : std::nullopt;
        if (line && this->key(wordOf(line->text)) < key)
            low = line->end;
        else
            high = middle < high ? middle : half;
    }
    while (const auto line = lineAt(low)) {
        if (this->key(wordOf(line->text)) >= key)
            break;
        low = line->end;
    }
    return low;
}

void DictdIndex::appendEntries(std::string_view word, std::vector<DictdPlace>& places) const {
    const std::string wanted = key(word);
    if (wanted.empty())
        return;
    std::uint64_t at = lowerBound(wanted);
    while (const auto line = lineAt(at)) {
        const std::string_view found = wordOf(line->text);
        // Some programs that make indexes leave a blank after a word.
        if (withoutEndBlanks(key(found)) != wanted)
            break;
        const auto place = placeOf(line->text);
        if (place && !describesDictionary(found) && std::find(places.begin(), places.end(), *place) == places.end())
            places.push_back(*place);
        at = line->end;
    }
}

std::vector<DictdPlace> DictdIndex::places() const {
    std::vector<DictdPlace> places;
    for (auto line = lineAt(0); line; line = lineAt(line->end))
        if (const auto place = placeOf(line->text); place && !describesDictionary(wordOf(line->text)))
            places.push_back(*place);
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

void DictdIndex::readFlags() {
    // Whether hyphens count depends on a flag that is sorted by that rule itself, so both orders are tried.
    bool allChars = false;
    for (const bool order : {false, true}) {
        allChars_ = order;
        for (const std::string_view start : {"00-database", "00database"}) {
            std::uint64_t at = lowerBound(key(start));
            for (auto line = lineAt(at); line && describesDictionary(wordOf(line->text)); line = lineAt(line->end)) {
                const std::string flag = ReplaceAllB(wordOf(line->text), "-", "");
                allChars = allChars || flag == "00databaseallchars";
                caseSensitive_ = caseSensitive_ || flag == "00databasecasesensitive";
                utf8_ = utf8_ || flag == "00databaseutf8";
                if (flag == "00databaseshort")
                    nameEntry_ = placeOf(line->text);
            }
        }
    }
    allChars_ = allChars;
}

std::vector<std::string> DictdIndex::spellings(std::string_view word) const {
    std::vector<std::string> spellings{squeezed(word)};
    if (!utf8_) {
        if (auto bytes = latin1(Lowercase(spellings.front())))
            spellings.push_back(std::move(*bytes));
        spellings.push_back(mStrMod_RemoveAccentFromLetters(spellings.front()));
        return spellings;
    }
    if (!caseSensitive_)
        spellings.front() = Lowercase(spellings.front());
    // Programs that make indexes differ in whether they count marks beyond ASCII as letters.
    if (!allChars_)
        spellings.push_back(squeezed(lettersAndDigits(spellings.front())));
    return spellings;
}

std::vector<DictdPlace> DictdIndex::find(std::string_view word) const {
    std::vector<DictdPlace> places;
    std::vector<std::string> asked;
    for (const std::string& spelling : spellings(word)) {
        if (std::find(asked.begin(), asked.end(), spelling) == asked.end())
            appendEntries(spelling, places);
        asked.push_back(spelling);
    }
    return places;
}

} // namespace velmarin
