#include "side/EntryText.h"

#include "files/TextFile.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace velmarin {

namespace {

constexpr std::size_t kShortestWrap = 50;
constexpr std::size_t kLongestWrap = 80;

std::size_t characters(std::string_view text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

std::string_view withoutIndent(std::string_view line) {
    return line.substr(std::min(line.find_first_not_of(" \t"), line.size()));
}

/// "1.", "(a)", "[Obs.]", "-- Longfellow", "Note:" and the like begin something of their own.
bool beginsSomething(std::string_view text) {
    const std::string_view word = text.substr(0, text.find(' '));
    return word.empty() || word.front() == '[' || word.front() == '(' || word.front() == '{' ||
           word.starts_with("--") || word.back() == ':' ||
           (word.front() >= '0' && word.front() <= '9' && (word.back() == '.' || word.back() == ')'));
}

/// Where the paragraphs of an entry are indented, a line that is not begins another one.
bool wasBroken(std::string_view line, std::string_view next, std::size_t width, bool indents) {
    const std::string_view text = withoutIndent(next);
    return !withoutIndent(line).empty() && (text.size() < next.size() || !indents) && !beginsSomething(text) &&
           characters(line) + 1 + characters(text.substr(0, text.find(' '))) > width;
}

} // namespace

std::string unwrapped(std::string_view entry) {
    std::vector<std::string_view> lines;
    std::size_t width = 0;
    for (LineReader reader(entry); !reader.EOF_();) {
        lines.push_back(reader.ReadLine());
        width = std::max(width, characters(lines.back()));
    }
    if (width < kShortestWrap || width > kLongestWrap)
        return std::string(entry);
    const bool indents = std::any_of(lines.begin() + 1, lines.end(), [](std::string_view line) {
        return !line.empty() && withoutIndent(line).size() < line.size();
    });
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i > 0 && wasBroken(lines[i - 1], lines[i], width, indents))
            text.append(" ").append(withoutIndent(lines[i]));
        else
            text.append(i == 0 ? "" : "\n").append(lines[i]);
    }
    return text;
}

} // namespace velmarin
