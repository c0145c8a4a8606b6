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
constexpr std::size_t longestEtymology = 90;
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

void addHeading(Paragraph& paragraph, const GcideArticle& article, std::size_t longestOrigin) {
    paragraph.spans.push_back({Style::Bold, article.divided, false});
    if (!article.pronunciation.empty() && article.pronunciation.find_first_of("[?#") == std::string::npos)
        paragraph.spans.push_back({Style::Roman, " (" + article.pronunciation + ")", false});
    if (!article.wordClass.empty()) {
        paragraph.spans.push_back({Style::Roman, ", ", false});
        paragraph.spans.push_back({Style::Italic, printedMarks(article.wordClass), false});
    }
    if (worthQuoting(article.etymology, longestOrigin)) {
        paragraph.spans.push_back({Style::Roman, " ", false});
        addRichText(paragraph.spans, article.etymology);
    }
}

/// A sense with its number in bold.
void addSense(Paragraph& paragraph, std::string_view text) {
    std::size_t digits = 0;
    while (digits < text.size() && std::isdigit(static_cast<unsigned char>(text[digits])) != 0)
        ++digits;
    if (digits > 0 && text.substr(digits).starts_with(". ")) {
        paragraph.spans.push_back({Style::Bold, std::string(text.substr(0, digits + 1)), false});
        paragraph.spans.push_back({Style::Roman, "\u00A0", false});
        text.remove_prefix(digits + 2);
    }
    if (text.starts_with("(")) {
        const auto end = text.find(')');
        if (end != std::string_view::npos && end > 2 && end < 30) {
            paragraph.spans.push_back({Style::Italic, std::string(text.substr(0, end + 1)), false});
            text.remove_prefix(end + 1);
        }
    }
    addRichText(paragraph.spans, text);
}

/// "Syn:" and "Note:" as the books set them.
void addRemark(Paragraph& paragraph, std::string_view text) {
    const auto colon = text.find(':');
    paragraph.spans.push_back({Style::Bold, std::string(text.substr(0, colon)) + ".", false});
    paragraph.spans.push_back({Style::Roman, " — ", false});
    addRichText(paragraph.spans, trimmed(text.substr(colon + 1)));
}

/// A phrase: its name in bold, then what it means.
void addPhrase(Paragraph& paragraph, std::string_view text) {
    const auto end = text.find('}');
    if (end == std::string_view::npos) {
        addRichText(paragraph.spans, text);
        return;
    }
    paragraph.spans.push_back({Style::Bold, printedMarks(text.substr(1, end - 1)), false});
    addRichText(paragraph.spans, text.substr(end + 1));
}

std::vector<Paragraph> inFull(const GcideArticle& article) {
    std::vector<Paragraph> paragraphs(1);
    addHeading(paragraphs[0], article, 600);
    for (const auto& block : article.blocks) {
        Paragraph paragraph{Setting::Indented, false, false, {}};
        switch (block.kind) {
        case Kind::Sense:
            addSense(paragraph, block.text);
            break;
        case Kind::Quotation:
            paragraph.small = true;
            addRichText(paragraph.spans, block.text);
            break;
        case Kind::Synonyms:
        case Kind::Note:
            paragraph.small = true;
            addRemark(paragraph, block.text);
            break;
        case Kind::Phrase:
            addPhrase(paragraph, block.text);
            break;
        }
        paragraphs.push_back(std::move(paragraph));
    }
    return paragraphs;
}

std::vector<Paragraph> shortened(const GcideArticle& article) {
    std::vector<Paragraph> paragraphs(1);
    addHeading(paragraphs[0], article, longestEtymology);
    paragraphs[0].spans.push_back({Style::Roman, " ", false});
    std::size_t senses = 0;
    bool quoted = false;
    for (const auto& block : article.blocks) {
        if (block.kind == Kind::Sense && senses < mostSenses) {
            if (senses > 0)
                paragraphs.push_back({Setting::Indented, false, false, {}});
            addSense(paragraphs.back(), cutShort(block.text, senses == 0 ? longestFirstSense : longestSense));
            ++senses;
        } else if (block.kind == Kind::Quotation && !quoted && senses > 0 && article.length >= longArticle &&
                   block.text.size() <= longestQuotation) {
            quoted = true;
            paragraphs.push_back({Setting::Indented, true, false, {}});
            addRichText(paragraphs.back().spans, block.text);
        } else if (block.kind == Kind::Synonyms) {
            paragraphs.push_back({Setting::Indented, true, false, {}});
            addRemark(paragraphs.back(), cutShort(block.text, longestSynonyms));
        }
    }
    return paragraphs;
}

std::size_t bytesOf(const std::vector<Paragraph>& paragraphs) {
    // A paragraph's last line is half empty on average.
    constexpr std::size_t lostPerParagraph = 25;
    std::size_t bytes = 0;
    for (const Paragraph& paragraph : paragraphs) {
        bytes += lostPerParagraph;
        for (const Span& span : paragraph.spans)
            bytes += span.text.size();
    }
    return bytes;
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

std::vector<Article> websterArticles(const DictdReader& gcide, std::size_t bytes,
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
        total += bytesOf(article.paragraphs);
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
