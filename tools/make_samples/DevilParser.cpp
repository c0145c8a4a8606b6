#include "make_samples/Parsers.h"

#include <algorithm>

#include "make_samples/Text.h"

namespace velmarin {

namespace {

constexpr std::size_t verseIndent = 4;
constexpr std::size_t signatureIndent = 36;
constexpr std::size_t proseWidth = 58;

/// The next line goes on with the same word.
bool endsInHyphen(std::string_view text) {
    return text.ends_with("-") && !text.ends_with("--");
}

bool isProse(const std::vector<std::string_view>& block) {
    std::size_t wide = 0;
    for (const std::string_view line : block)
        wide += line.size() >= proseWidth ? 1 : 0;
    return indentOf(block.front()) < verseIndent || wide * 2 > block.size();
}

/// One block between blank lines.
void addBlock(std::vector<Paragraph>& paragraphs, const std::vector<std::string_view>& block) {
    const bool prose = isProse(block);
    bool open = false;
    for (const std::string_view line : block) {
        const std::size_t indent = indentOf(line);
        const std::string text = singleSpaced(line);
        if (indent >= signatureIndent) {
            paragraphs.push_back({Setting::Right, true, false, smallCapitals(printedMarks(text))});
            open = false;
        } else if (prose) {
            // Only the opening of a paragraph is indented.
            if (!open || indent >= verseIndent * 2)
                paragraphs.push_back({Setting::Indented, indent >= verseIndent, false, {}});
            else if (!endsInHyphen(paragraphs.back().markup))
                paragraphs.back().markup += ' ';
            open = true;
            paragraphs.back().markup += richText(text);
        } else {
            paragraphs.push_back({Setting::Verse, true, line.data() == block.front().data(), {}});
            for (std::size_t i = verseIndent; i < indent; ++i)
                paragraphs.back().markup += "\u00A0";
            paragraphs.back().markup += richText(text);
        }
    }
}

} // namespace

Article parseDevilArticle(std::string_view text) {
    // Words in capitals, then perhaps a comma, a word class and two blanks.
    static Pattern heading(
        R"(^\n*((?:[A-Z][^\sa-z,]*)(?: [A-Z][^\sa-z,]*(?![^\s,]))*)(?:,(?: ?([^\n]{1,22}?)(?=  ))?)?)");
    if (!heading.finds(text) || heading.Substring(1).empty())
        return {};
    Article article;
    article.key = heading.Substring(1);
    if (article.key.find('.') + 1 == article.key.size())
        article.key.pop_back();
    article.guide = article.key;
    article.note = heading.Substring(2);
    const bool comma = heading.Substring(0).find(',') != std::string::npos;
    std::string markup = inRed(bold(article.key)) + (comma ? ", " : "") +
                         (article.note.empty() ? "" : italic(article.note)) +
                         (comma && article.note.empty() ? "" : " ");
    const auto lines = linesOf(text.substr(heading.Substring(0).size()));
    std::size_t i = 0;
    std::string first;
    for (; i < lines.size() && !trimmed(lines[i]).empty(); ++i)
        (first += endsInHyphen(first) ? "" : " ") += lines[i];
    article.paragraphs.push_back({Setting::Hanging, false, false, markup + richText(singleSpaced(first))});
    std::vector<std::string_view> block;
    for (; i <= lines.size(); ++i) {
        if (i < lines.size() && !trimmed(lines[i]).empty()) {
            block.push_back(lines[i]);
        } else if (!block.empty()) {
            addBlock(article.paragraphs, block);
            block.clear();
        }
    }
    return article;
}

} // namespace velmarin
