#include "make_samples/Parsers.h"

#include <algorithm>
#include <cctype>
#include <functional>
#include <iterator>
#include <map>
#include <set>

#include "make_samples/Text.h"
#include "text/Utf8.h"

namespace velmarin {

namespace {

using Kind = GcideArticle::Block::Kind;

constexpr std::size_t longestFirstSense = 230;
constexpr std::size_t longestSense = 120;
constexpr std::size_t longestQuotation = 110;
constexpr std::size_t longestSynonyms = 120;
constexpr std::size_t longestOrigin = 90;
constexpr std::size_t longestOriginInFull = 600;
/// More is no word class, but a heading that could not be told from its text.
constexpr std::size_t longestWordClass = 60;
constexpr std::size_t mostSenses = 3;
/// Which articles of a letter are given in full as well: the longest, and two of a page or so.
const std::set<std::size_t> inFullRanks{0, 12, 30};
/// Source bytes from which an article is one of those that have a quotation.
constexpr std::size_t longArticle = 1500;

std::string heading(const GcideArticle& article, std::size_t longestOrigin) {
    // Not those that quote Greek, which the source spells in Latin letters.
    static Pattern origin(R"(^\[(?!.*(Gr\.|Skr\.|`)).*\]$)");
    std::string markup = bold(article.divided);
    if (!article.pronunciation.empty() && article.pronunciation.find_first_of("[?#") == std::string::npos)
        markup += " (" + escaped(article.pronunciation) + ")";
    if (!article.wordClass.empty())
        markup += ", " + italic(printedMarks(article.wordClass));
    if (article.etymology.size() <= longestOrigin && origin.finds(article.etymology))
        markup += " " + richText(article.etymology);
    return markup;
}

/// A sense with its number in bold and its field in italics.
std::string sense(std::string_view text) {
    std::string markup;
    const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
    if (digits > 0 && text.substr(digits).starts_with(". ")) {
        markup = bold(text.substr(0, digits + 1)) + "\u00A0";
        text.remove_prefix(digits + 2);
    }
    const auto end = text.find(')');
    if (text.starts_with("(") && end > 2 && end < 30) {
        markup += italic(text.substr(0, end + 1));
        text.remove_prefix(end + 1);
    }
    return markup + richText(text);
}

Paragraph paragraphOf(Kind kind, std::string_view text) {
    Paragraph paragraph{Setting::Indented, kind != Kind::Sense && kind != Kind::Phrase, false, {}};
    if (kind == Kind::Sense) {
        paragraph.markup = sense(text);
    } else if (kind == Kind::Quotation) {
        paragraph.markup = richText(text);
    } else if (kind == Kind::Phrase) {
        const std::size_t end = std::min(text.find('}'), text.size() - 1);
        paragraph.markup = bold(printedMarks(text.substr(1, end - 1))) + richText(text.substr(end + 1));
    } else {
        // "Syn:" and "Note:" as the books set them.
        const std::size_t colon = text.find(':');
        paragraph.markup =
            bold(std::string(text.substr(0, colon)) + ".") + " — " + richText(trimmed(text.substr(colon + 1)));
    }
    return paragraph;
}

std::vector<Paragraph> inFull(const GcideArticle& article) {
    std::vector<Paragraph> paragraphs{{Setting::Hanging, false, false, heading(article, longestOriginInFull)}};
    for (const auto& block : article.blocks)
        paragraphs.push_back(paragraphOf(block.kind, block.text));
    return paragraphs;
}

std::vector<Paragraph> shortened(const GcideArticle& article) {
    std::vector<Paragraph> paragraphs{{Setting::Hanging, false, false, heading(article, longestOrigin)}};
    std::size_t senses = 0;
    bool quoted = false;
    for (const auto& block : article.blocks) {
        if (block.kind == Kind::Sense && senses < mostSenses) {
            Paragraph next =
                paragraphOf(Kind::Sense, cutShort(block.text, senses == 0 ? longestFirstSense : longestSense));
            if (senses++ == 0)
                paragraphs.back().markup += " " + next.markup;
            else
                paragraphs.push_back(std::move(next));
        } else if (block.kind == Kind::Quotation && !quoted && senses > 0 && article.length >= longArticle &&
                   block.text.size() <= longestQuotation) {
            quoted = true;
            paragraphs.push_back(paragraphOf(block.kind, block.text));
        } else if (block.kind == Kind::Synonyms) {
            paragraphs.push_back(paragraphOf(block.kind, cutShort(block.text, longestSynonyms)));
        }
    }
    return paragraphs;
}

/// Words that many books have, before phrases and what is out of use.
double importance(const GcideArticle& article) {
    auto value = static_cast<double>(article.length);
    if (article.headword.find(' ') != std::string::npos)
        value *= 0.3;
    if (std::isupper(static_cast<unsigned char>(article.divided.front())) != 0 && article.wordClass.empty())
        value *= 0.5;
    for (const auto& block : article.blocks)
        if (block.text.find("[Obs.]") != std::string::npos)
            value *= 0.9;
    return value;
}

} // namespace

std::vector<Article> websterArticles(const SourceText& gcide, std::size_t bytes, const std::string& alwaysInFull) {
    std::vector<std::pair<double, GcideArticle>> all;
    for (const std::string_view text : gcide.articles()) {
        if (text.find("[1913 Webster") == std::string_view::npos)
            continue;
        GcideArticle article = parseGcideArticle(text);
        if (article.wordClass.size() <= longestWordClass && !article.headword.empty() && !article.blocks.empty() &&
            std::isalpha(static_cast<unsigned char>(article.divided.front())) != 0)
            all.emplace_back(importance(article), std::move(article));
    }
    std::ranges::stable_sort(all, std::greater(), [](const auto& rated) { return rated.first; });
    std::vector<Article> articles;
    std::map<std::string, std::vector<std::size_t>> homographs;
    std::map<char, std::size_t> ofLetter;
    std::vector<std::string> inFullToo;
    for (std::size_t i = 0, total = 0; i < all.size() && total < bytes; ++i) {
        const GcideArticle& article = all[i].second;
        articles.push_back({article.headword, article.headword, article.wordClass, shortened(article), {}});
        for (const Paragraph& paragraph : articles.back().paragraphs)
            total += paragraph.markup.size();
        const std::size_t rank = ofLetter[asciiCapital(article.headword.front())]++;
        if (homographs[article.headword].empty() && (inFullRanks.contains(rank) || article.headword == alwaysInFull))
            inFullToo.push_back(article.headword);
        homographs[article.headword].push_back(i);
    }
    for (const std::string& headword : inFullToo)
        for (const std::size_t i : homographs[headword])
            std::ranges::move(inFull(all[i].second),
                              std::back_inserter(articles[homographs[headword].front()].supplement));
    return articles;
}

} // namespace velmarin
