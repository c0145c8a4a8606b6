#include "make_samples/OtherParsers.h"

#include <algorithm>
#include <array>
#include <utility>

#include "make_samples/RichText.h"
#include "make_samples/TextPieces.h"

namespace velmarin {

namespace {

constexpr std::size_t mostHeadings = 2;

bool isKana(char32_t c) {
    return c >= 0x3040 && c <= 0x30FF;
}

bool allKana(std::string_view word) {
    std::size_t at = 0;
    while (at < word.size())
        if (!isKana(nextCodePoint(word, at)))
            return false;
    return !word.empty();
}

/// Every stretch from `open` to `close` taken out, both included.
std::string without(std::string text, std::string_view open, std::string_view close) {
    for (auto at = text.find(open); at != std::string::npos; at = text.find(open, at)) {
        const auto end = text.find(close, at + open.size());
        if (end == std::string::npos)
            break;
        text.erase(at, end + close.size() - at);
    }
    return text;
}

/// The word class in the words of a French book.
std::string_view printedClass(std::string_view line) {
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 9> rows{{
        {"(noun", "n."},
        {"adjectival nouns", "adj."},
        {"adjective", "adj."},
        {"adverb", "adv."},
        {"verb", "v."},
        {"pronoun", "pron."},
        {"interjection (", "interj."},
        {"conjunction", "conj."},
        {"suffix", "suff."},
    }};
    for (const auto& [found, printed] : rows)
        if (line.find(found) != std::string_view::npos)
            return printed;
    return {};
}

/// A sense after its number, without the word class in front of it.
std::string withoutClass(const std::string& line) {
    const std::size_t open = std::min(line.find_first_not_of("0123456789. "), line.size());
    if (open == line.size() || line[open] != '(')
        return line;
    int depth = 0;
    for (std::size_t i = open; i < line.size(); ++i) {
        depth += line[i] == '(' ? 1 : line[i] == ')' ? -1 : 0;
        if (depth == 0) {
            if (printedClass(std::string_view(line).substr(open, i - open)).empty())
                return line;
            return line.substr(0, open) + std::string(trimmed(std::string_view(line).substr(i + 1)));
        }
    }
    return line;
}

/// At most two of them, as Japanese books give the characters after the kana.
std::string headingsInBrackets(const std::vector<std::string>& headings) {
    std::string text = "【";
    for (std::size_t i = 0; i < headings.size() && i < mostHeadings; ++i)
        text += (i == 0 ? "" : "・") + headings[i];
    return text + "】";
}

} // namespace

Article parseJapaneseArticle(std::string_view text) {
    Article article;
    const auto lines = linesOf(text);
    if (lines.size() < 2 ||
        (lines[0].find("[ichi1]") == std::string_view::npos && lines[0].find("[news1]") == std::string_view::npos &&
         lines[0].find("[spec1]") == std::string_view::npos))
        return article;
    // A note in the source runs into the translation that follows it.
    if (text.find("Note:") != std::string_view::npos)
        return article;
    std::string heading = without(std::string(lines[0]), " /", "/");
    heading = without(without(std::move(heading), "[", "]"), "(", ")");
    std::vector<std::string> headings;
    std::string_view rest = heading;
    while (!rest.empty()) {
        const auto end = std::min(rest.find(','), rest.size());
        const std::string word(trimmed(rest.substr(0, end)));
        if (allKana(word)) {
            if (article.key.empty())
                article.key = word;
        } else if (!word.empty()) {
            headings.push_back(word);
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    if (article.key.empty())
        return article;
    article.guide = article.key;
    std::string markup = bold(article.key);
    if (!headings.empty()) {
        article.note = headings.front();
        markup += escaped(headingsInBrackets(headings));
    }
    std::string wordClass;
    std::string meaning;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const std::string line = singleSpaced(without(std::string(lines[i]), "{", "}"));
        if (line.starts_with("(") && line.ends_with(")")) {
            if (wordClass.empty())
                wordClass = printedClass(line);
        } else if (!line.empty()) {
            meaning += " " + withoutClass(line);
        }
    }
    if (!wordClass.empty())
        markup += italic(" " + wordClass);
    article.paragraphs.push_back({Setting::Hanging, false, false, markup + richText(meaning) + "."});
    return article;
}

} // namespace velmarin
