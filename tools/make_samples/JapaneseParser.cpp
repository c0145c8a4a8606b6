#include "make_samples/Parsers.h"

#include <algorithm>
#include <array>
#include <utility>

#include "make_samples/Text.h"
#include "text/StringFields.h"

namespace velmarin {

namespace {

constexpr std::size_t mostHeadings = 2;

bool allKana(std::string_view word) {
    for (std::size_t at = 0; at < word.size();)
        if (const char32_t c = nextCodePoint(word, at); c < 0x3040 || c > 0x30FF)
            return false;
    return !word.empty();
}

/// The word class in the words of a French book.
std::string printedClass(std::string_view text) {
    static constexpr std::array<std::pair<std::string_view, const char*>, 9> rows{{{"(noun", "n."},
                                                                                   {"adjectival nouns", "adj."},
                                                                                   {"adjective", "adj."},
                                                                                   {"adverb", "adv."},
                                                                                   {"verb", "v."},
                                                                                   {"pronoun", "pron."},
                                                                                   {"interjection (", "interj."},
                                                                                   {"conjunction", "conj."},
                                                                                   {"suffix", "suff."}}};
    for (const auto& [found, printed] : rows)
        if (text.find(found) != std::string_view::npos)
            return printed;
    return {};
}

} // namespace

Article parseJapaneseArticle(std::string_view text) {
    static Pattern common(R"(^[^\n]*\[(ichi1|news1|spec1)\])");
    static const Pattern marks(R"( /[^/]*/|\[[^\]]*\]|\((?:[^()]|\([^()]*\))*\))");
    static const Pattern notes(R"(\{[^}]*\})");
    static Pattern classed(R"(^([\d. ]*)(\((?:[^()]|\([^()]*\))*\)) *(.*)$)");
    const auto lines = linesOf(text);
    // A note in the source runs into the translation that follows it.
    if (!common.finds(text) || text.find("Note:") != std::string_view::npos)
        return {};
    std::string key;
    std::string first;
    std::string headings;
    std::size_t count = 0;
    for (const std::string& part : Split(marks.removedFrom(lines[0]), ",")) {
        const std::string word(trimmed(part));
        if (allKana(word)) {
            key = key.empty() ? word : key;
        } else if (!word.empty() && count++ < mostHeadings) {
            first = first.empty() ? word : first;
            headings += (headings.empty() ? "" : "・") + word;
        }
    }
    if (key.empty())
        return {};
    std::string wordClass;
    std::string meaning;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        std::string line = singleSpaced(notes.removedFrom(lines[i]));
        if (classed.finds(line)) {
            const std::string found = printedClass(classed.Substring(2));
            wordClass = wordClass.empty() ? found : wordClass;
            if (!found.empty() || line == classed.Substring(2))
                line = singleSpaced(classed.Substring(1) + classed.Substring(3));
        }
        if (!line.empty())
            meaning += " " + line;
    }
    const std::string markup = bold(key) + (headings.empty() ? "" : escaped("【" + headings + "】")) +
                               (wordClass.empty() ? "" : italic(" " + wordClass)) + richText(meaning) + ".";
    return {key, key, first, {{Setting::Hanging, false, false, markup}}, {}};
}

} // namespace velmarin
