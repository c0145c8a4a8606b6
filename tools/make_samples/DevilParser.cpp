#include "make_samples/OtherParsers.h"

#include <algorithm>
#include <cctype>

#include "make_samples/RichText.h"
#include "make_samples/TextPieces.h"

namespace velmarin {

namespace {

constexpr std::size_t verseIndent = 4;
constexpr std::size_t signatureIndent = 36;
constexpr std::size_t proseWidth = 58;
constexpr std::size_t longestWordClass = 24;

std::size_t indentOf(std::string_view line) {
    return std::min(line.find_first_not_of(' '), line.size());
}

/// The length of the headword: words in capitals, up to a comma, two blanks, or a word that is not.
std::size_t headwordLength(std::string_view text) {
    std::size_t end = 0;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t wordEnd = std::min(text.find_first_of(" ,\n", at), text.size());
        const std::string_view word = text.substr(at, wordEnd - at);
        if (word.empty() || std::any_of(word.begin(), word.end(), [](unsigned char c) { return std::islower(c); }) ||
            std::isupper(static_cast<unsigned char>(word.front())) == 0)
            break;
        end = wordEnd;
        if (wordEnd >= text.size() || text[wordEnd] != ' ' || text.substr(wordEnd).starts_with("  "))
            break;
        at = wordEnd + 1;
    }
    return end;
}

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
void addBlock(Article& article, const std::vector<std::string_view>& block, bool gap) {
    const bool prose = isProse(block);
    bool open = false;
    for (const std::string_view line : block) {
        const std::size_t indent = indentOf(line);
        const std::string text = singleSpaced(line);
        if (indent >= signatureIndent) {
            article.paragraphs.push_back({Setting::Right, true, false, smallCapitals(printedMarks(text))});
            open = false;
            continue;
        }
        if (prose) {
            // Only the opening of a paragraph is indented.
            if (!open || indent >= verseIndent * 2)
                article.paragraphs.push_back({Setting::Indented, indent >= verseIndent, false, {}});
            else if (!endsInHyphen(article.paragraphs.back().markup))
                article.paragraphs.back().markup += ' ';
            open = true;
            article.paragraphs.back().markup += richText(text);
            continue;
        }
        Paragraph verse{Setting::Verse, true, gap, {}};
        gap = false;
        for (std::size_t i = verseIndent; i < indent; ++i)
            verse.markup += "\u00A0";
        verse.markup += richText(text);
        article.paragraphs.push_back(std::move(verse));
    }
}

} // namespace

Article parseDevilArticle(std::string_view text) {
    Article article;
    while (text.starts_with("\n"))
        text.remove_prefix(1);
    const std::size_t length = headwordLength(text);
    if (length == 0)
        return article;
    std::string headword(text.substr(0, length));
    text.remove_prefix(length);
    if (headword.ends_with(".") && headword.find('.') + 1 == headword.size())
        headword.pop_back();
    article.key = headword;
    article.guide = headword;
    Paragraph opening;
    opening.markup = inRed(bold(headword));
    if (text.starts_with(",")) {
        opening.markup += ", ";
        const auto end = text.find("  ");
        if (end < longestWordClass) {
            article.note = singleSpaced(text.substr(1, end - 1));
            opening.markup += italic(article.note);
            text.remove_prefix(end);
        } else {
            text.remove_prefix(1);
        }
    }
    opening.markup += ' ';
    const auto lines = linesOf(text);
    std::size_t i = 0;
    std::string first;
    for (; i < lines.size() && !trimmed(lines[i]).empty(); ++i)
        first += (endsInHyphen(first) ? "" : " ") + std::string(lines[i]);
    opening.markup += richText(singleSpaced(first));
    article.paragraphs.push_back(std::move(opening));
    std::vector<std::string_view> block;
    for (; i <= lines.size(); ++i) {
        if (i < lines.size() && !trimmed(lines[i]).empty()) {
            block.push_back(lines[i]);
            continue;
        }
        if (!block.empty())
            addBlock(article, block, true);
        block.clear();
    }
    return article;
}

} // namespace velmarin
