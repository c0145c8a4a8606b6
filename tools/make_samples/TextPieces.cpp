#include "make_samples/TextPieces.h"

#include "text/StringRules.h"

namespace velmarin {

namespace {

constexpr std::string_view blanks = " \t\r\n";

} // namespace

char32_t nextCodePoint(std::string_view text, std::size_t& at) {
    const Utf8Unit unit = decodeUtf8(text, at);
    at += unit.length;
    return unit.value < invalidByteUnit ? unit.value : 0xFFFD;
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const auto end = text.find('\n');
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

std::string singleSpaced(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (const char c : trimmed(text)) {
        if (blanks.find(c) == std::string_view::npos)
            out += c;
        else if (out.back() != ' ')
            out += ' ';
    }
    return out;
}

void replaceEach(std::string& text, std::string_view find, std::string_view replacement) {
    for (std::size_t at = text.find(find); at != std::string::npos; at = text.find(find, at + replacement.size()))
        text.replace(at, find.size(), replacement);
}

bool isAbusive(std::string_view text) {
    // The slow search that ignores case is for the few texts that may hold the word at all.
    constexpr auto none = std::string_view::npos;
    return (text.find("igger") != none || text.find("IGGER") != none) && InStr(1, text, "nigger") != 0;
}

} // namespace velmarin
