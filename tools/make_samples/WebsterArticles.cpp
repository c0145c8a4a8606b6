#include "make_samples/GcideParser.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <map>
#include <set>

#include "make_samples/RichText.h"
#include "make_samples/TextPieces.h"

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
/// Source bytes from which an article is one of those that have a quotation.
constexpr std::size_t longArticle = 1500;

/// An etymology is left out where it quotes Greek, which the source spells in Latin letters.
bool worthQuoting(const std::string& etymology, std::size_t longest) {
    return !etymology.empty() && etymology.size() <= longest && etymology.find("Gr.") == std::string::npos &&
           etymology.find('`') == std::string::npos && etymology.find("Skr.") == std::string::npos &&
           etymology.back() == ']';
}

std::string heading(const GcideArticle& article, std::size_t longestOrigin) {
    std::string markup = bold(article.divided);
    if (!article.pronunciation.empty() && article.pronunciation.find_first_of("[?#") == std::string::npos)
        markup += " (" + escaped(article.pronunciation) + ")";
    if (!article.wordClass.empty())
        markup += ", " + italic(printedMarks(article.wordClass));
    if (worthQuoting(article.etymology, longestOrigin))
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

char firstLetter(const std::string& word) {
    return static_cast<char>(std::toupper(static_cast<unsigned char>(word.front())));
}

/// Which of `chosen`, the most important first, are given in full as well: one of those with the same headword.
std::set<std::size_t> givenInFull(const std::vector<GcideArticle>& chosen, const std::vector<std::string>& always) {
    std::set<std::size_t> picked;
    std::map<char, std::vector<std::size_t>> byLetter;
    for (std::size_t i = 0; i < chosen.size(); ++i) {
        byLetter[firstLetter(chosen[i].headword)].push_back(i);
        if (std::find(always.begin(), always.end(), chosen[i].headword) != always.end())
            picked.insert(i);
    }
    for (const auto& [letter, articles] : byLetter) {
        // The longest, and two of a page or so.
        picked.insert(articles.front());
        picked.insert(articles[articles.size() / 40]);
        picked.insert(articles[articles.size() / 15]);
    }
    std::set<std::string> seen;
    std::erase_if(picked, [&](std::size_t i) { return !seen.insert(chosen[i].headword).second; });
    return picked;
}

} // namespace

std::vector<Article> websterArticles(const SourceText& gcide, std::size_t bytes,
                                     const std::vector<std::string>& alwaysInFull) {
    std::vector<GcideArticle> all;
    for (const std::string_view text : gcide.articles()) {
        if (isAbusive(text))
            continue;
        GcideArticle article = parseGcideArticle(text);
        if (article.of1913 && article.wordClass.size() <= longestWordClass && !article.headword.empty() &&
            !article.divided.empty() && !article.blocks.empty() &&
            std::isalpha(static_cast<unsigned char>(article.divided.front())) != 0)
            all.push_back(std::move(article));
    }
    std::vector<std::pair<double, std::size_t>> order;
    order.reserve(all.size());
    for (std::size_t i = 0; i < all.size(); ++i)
        order.emplace_back(-importance(all[i]), i);
    std::sort(order.begin(), order.end());
    std::vector<GcideArticle> chosen;
    std::vector<Article> articles;
    std::size_t total = 0;
    for (const auto& [negative, i] : order) {
        if (total >= bytes)
            break;
        Article article;
        article.key = all[i].headword;
        article.guide = all[i].headword;
        article.note = all[i].wordClass;
        article.paragraphs = shortened(all[i]);
        for (const Paragraph& paragraph : article.paragraphs)
            total += paragraph.markup.size();
        articles.push_back(std::move(article));
        chosen.push_back(std::move(all[i]));
    }
    for (const std::size_t i : givenInFull(chosen, alwaysInFull))
        for (const GcideArticle& homograph : chosen)
            if (homograph.headword == chosen[i].headword)
                std::ranges::move(inFull(homograph), std::back_inserter(articles[i].supplement));
    return articles;
}

} // namespace velmarin
