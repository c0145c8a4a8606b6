#include "make_samples/Webster.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <functional>
#include <map>
#include <set>
#include <utility>

#include "press/Text.h"
#include "text/FindReplace.h"
#include "text/StringFields.h"
#include "text/UnicodeForms.h"
#include "text/Utf8.h"

namespace velmarin {

namespace {

using Kind = GcideArticle::Block::Kind;

// What a shortened article takes beside its first sense, in bytes and senses.
constexpr std::size_t kLongestBlock = 130;
constexpr std::size_t kLongestOrigin = 90;
constexpr std::size_t kLongestOriginInFull = 600;
constexpr std::size_t kMostSenses = 3;
/// Longer ones are headings that could not be told from their text.
constexpr std::size_t kLongestWordClass = 60;
/// Of each letter, the articles of these ranks are given in full as well: the longest, and two of about a page.
const std::set<std::size_t> kInFullRanks{0, 12, 30};

/// Signs for accents before their letter, "[=a]", and after it, "[a^]", with the combining characters that they mean.
using Marks = std::map<char, const char*>;
const Marks kMarksBefore{{'\'', "\u0301"}, {'`', "\u0300"}, {'^', "\u0302"}, {'"', "\u0308"}, {'~', "\u0303"},
                         {'=', "\u0304"},  {',', "\u0327"}, {'.', "\u0307"}, {'-', "\u0304"}, {'*', "\u0308"},
                         {':', "\u0308"},  {'v', "\u030C"}, {'_', "\u0331"}, {'@', "\u030A"}};
const Marks kMarksAfter{{'^', "\u0306"}, {'~', "\u0303"}, {'*', "\u0325"}};

constexpr std::array<std::pair<std::string_view, std::string_view>, 36> kNamedLetters{{
    {"ae", "æ"},     {"AE", "Æ"},    {"oe", "œ"},     {"OE", "Œ"},   {"aum", "ä"},  {"oum", "ö"},
    {"uum", "ü"},    {"eum", "ë"},   {"imac", "ī"},   {"amac", "ā"}, {"omac", "ō"}, {"umac", "ū"},
    {"emac", "ē"},   {"thorn", "þ"}, {"eth", "ð"},    {"edh", "ð"},  {"asl", "ă"},  {"add", "ạ"},
    {"udd", "ụ"},    {"oocr", "oo"}, {"=oo", "o͞o"},   {"oo^", "o͝o"}, {"ng", "ṉ"},   {"deg", "°"},
    {"root", "√"},   {"sect", "§"},  {"pounds", "£"}, {"yogh", "ȝ"}, {"th", "th"},  {"prime", "′"},
    {"bprime", "‵"}, {"flat", "♭"},  {"sharp", "♯"},  {"=ae", "ǣ"},  {"isl", "ĭ"},  {"8star", "*"},
}};

/// The letter that the sign between two brackets means; empty if it is not such a sign.
std::string letterOf(std::string_view sign) {
    for (const auto& [name, letter] : kNamedLetters)
        if (sign == name)
            return std::string(letter);
    const auto marked = [](const Marks& marks, char mark, char letter) {
        const auto found = std::isalpha(static_cast<unsigned char>(letter)) != 0 ? marks.find(mark) : marks.end();
        return found == marks.end() ? "" : composedForm(letter + std::string(found->second));
    };
    if (sign.size() != 2)
        return {};
    const std::string letter = marked(kMarksBefore, sign[0], sign[1]);
    return letter.empty() ? marked(kMarksAfter, sign[1], sign[0]) : letter;
}

/// Whether the editors of the electronic text added the block.
bool isModern(std::string_view block) {
    return block.find("1913") == std::string_view::npos &&
           (block.find("[PJC") != std::string_view::npos || block.find("[WordNet") != std::string_view::npos);
}

std::string withoutCredits(const std::string& text) {
    static const Pattern credit(R"(\[([^\]]*(Webster|WordNet|PJC|Century Dict)[^\]]*|\d)\])");
    return text.find('[') == std::string::npos ? text : credit.removedFrom(text);
}

/// How many lines the heading takes. The source is filled to 65 columns, so that a line that would have had room for
/// the first word of the next ends its paragraph.
std::size_t headingLines(const std::vector<std::string>& lines) {
    constexpr std::size_t columns = 65;
    constexpr std::size_t mostLines = 14;
    long open = 0;
    for (std::size_t i = 0; i < lines.size() && i < mostLines; ++i) {
        for (const char c : lines[i])
            open += c == '[' || c == '(' ? 1 : c == ']' || c == ')' ? -1 : 0;
        const std::string_view next = i + 1 < lines.size() ? trimmed(lines[i + 1]) : "";
        const std::size_t word = std::min(next.find(' '), next.size());
        const bool forced = lines[i].size() + 1 + word <= columns;
        if (next.empty() || (open <= 0 && (forced || next.starts_with("1. "))))
            return i + 1;
    }
    return 1;
}

/// A word with " ` * for accents and division: Pal"imp*sest to Pal′imp·sest. An accent divides as well.
std::string dividedWord(std::string word) {
    for (const auto& [code, sign] : {std::pair("\"", "′"), {"`", "″"}, {"*", "·"}, {"′·", "′"}, {"″·", "″"}})
        word = ReplaceAllB(word, code, sign);
    return word;
}

/// "n.; pl. {Mice} (mīs)." keeps the word forms alone.
std::string withoutPronunciations(std::string_view text) {
    static const Pattern pronunciation(R"(\([^)]*\)|[{}])");
    static const Pattern between("^ ?[.]$|[, ]+$| (?=[;,.])");
    return between.removedFrom(singleSpaced(pronunciation.removedFrom(text)));
}

/// headword \divided word\ (pronunciation), further spellings, word class [etymology]
void parseHeading(GcideArticle& article, const std::string& text) {
    static Pattern parts(R"(^(.*?) \\(.+?)\\ *(?:\((.*?)\))?(?:[^\[]*\\)?[, ]*([^\[]*)(.*)$)");
    if (!parts.finds(gcideLetters(text)))
        return;
    article.headword = trimmed(parts.Substring(1));
    article.divided = dividedWord(parts.Substring(2));
    article.pronunciation = dividedWord(parts.Substring(3));
    article.wordClass = withoutPronunciations(parts.Substring(4));
    article.etymology = trimmed(parts.Substring(5));
}

Kind kindOf(std::string_view text, std::size_t indent) {
    if (text.starts_with("Syn:"))
        return Kind::Synonyms;
    if (text.starts_with("Note:") || text.starts_with("Usage:"))
        return Kind::Note;
    if (text.starts_with("{"))
        return Kind::Phrase;
    return indent > 7 ? Kind::Quotation : Kind::Sense;
}

std::string heading(const GcideArticle& article, bool inFull) {
    // Not those that quote Greek, which the source spells in Latin letters.
    static Pattern origin(R"(^\[(?!.*(Gr\.|Skr\.|`)).*\]$)");
    std::string markup = bold(article.divided);
    if (!article.pronunciation.empty() && article.pronunciation.find_first_of("[?#") == std::string::npos)
        markup += " (" + escaped(article.pronunciation) + ")";
    if (!article.wordClass.empty())
        markup += ", " + italic(printedMarks(article.wordClass));
    if (article.etymology.size() <= (inFull ? kLongestOriginInFull : kLongestOrigin) && origin.finds(article.etymology))
        markup += " " + richText(article.etymology);
    return markup;
}

/// A sense with its number in bold and its field in italics.
std::string sense(std::string_view text) {
    static Pattern parts(R"(^(?:(\d+\.) )?(\([^)]{2,28}\))?(.*)$)");
    parts.finds(text);
    const std::string number = parts.Substring(1);
    const std::string field = parts.Substring(2);
    return (number.empty() ? "" : bold(number) + "\u00A0") + (field.empty() ? "" : italic(field)) +
           richText(parts.Substring(3));
}

Paragraph paragraphOf(Kind kind, std::string_view text) {
    Paragraph paragraph{Setting::Indented, kind != Kind::Sense && kind != Kind::Phrase};
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

std::vector<Paragraph> paragraphsOf(const GcideArticle& article, bool inFull) {
    std::vector<Paragraph> paragraphs{{.markup = heading(article, inFull)}};
    std::map<Kind, std::size_t> taken;
    for (const auto& [kind, text] : article.blocks) {
        const bool isFirst = kind == Kind::Sense && taken[kind] == 0;
        const bool isQuotation = kind == Kind::Quotation;
        const std::size_t most = kind == Kind::Sense ? kMostSenses : isQuotation || kind == Kind::Synonyms ? 1 : 0;
        if (!inFull && !isFirst && (text.size() > kLongestBlock || taken[kind] >= most))
            continue;
        ++taken[kind];
        Paragraph next = paragraphOf(kind, text);
        if (isFirst)
            paragraphs.front().markup += " " + next.markup;
        else
            paragraphs.push_back(std::move(next));
    }
    return paragraphs;
}

} // namespace

std::string gcideLetters(std::string_view text) {
    constexpr std::size_t longestSign = 8;
    std::string out;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text[at] == '[' ? text.find(']', at) : std::string_view::npos;
        const std::string letter = end - at > longestSign ? "" : letterOf(text.substr(at + 1, end - at - 1));
        out += letter.empty() ? std::string(1, text[at]) : letter;
        at = letter.empty() ? at + 1 : end + 1;
    }
    return out;
}

GcideArticle parseGcideArticle(std::string_view text) {
    GcideArticle article;
    article.length = text.size();
    const auto lines = linesOf(text.substr(std::min(text.find_first_not_of('\n'), text.size())));
    if (lines.empty())
        return article;
    const auto body = lines.begin() + static_cast<std::ptrdiff_t>(headingLines(lines));
    parseHeading(article, singleSpaced(Join({lines.begin(), body}, " ")));
    for (const auto& block : blocksOf({body, lines.end()})) {
        const std::string whole = singleSpaced(Join(block, " "));
        const std::string clean = isModern(whole) ? "" : singleSpaced(withoutCredits(whole));
        if (!clean.empty())
            article.blocks.push_back({kindOf(clean, indentOf(block.front())), gcideLetters(clean)});
    }
    return article;
}

std::vector<Article> websterArticles(const std::vector<std::string>& gcide, std::size_t bytes,
                                     const std::string& alwaysInFull) {
    std::vector<GcideArticle> all;
    for (const std::string& text : gcide)
        if (text.find("[1913 Webster") != std::string::npos)
            if (GcideArticle article = parseGcideArticle(text);
                article.wordClass.size() <= kLongestWordClass && !article.headword.empty() && !article.blocks.empty() &&
                std::isalpha(static_cast<unsigned char>(article.divided.front())) != 0)
                all.push_back(std::move(article));
    std::ranges::stable_sort(all, std::greater(), [&](const GcideArticle& article) {
        return std::pair(article.headword == alwaysInFull, article.length);
    });
    std::vector<Article> articles;
    std::map<char, std::size_t> ofLetter;
    std::size_t total = 0;
    for (const GcideArticle& from : all) {
        Article article{from.headword, from.headword, from.wordClass, paragraphsOf(from, false)};
        for (const Paragraph& paragraph : article.paragraphs)
            total += paragraph.markup.size();
        if (total > bytes)
            break;
        const std::size_t rank = ofLetter[asciiCapital(from.headword.front())]++;
        if (kInFullRanks.contains(rank) || from.headword == alwaysInFull)
            article.supplement = paragraphsOf(from, true);
        articles.push_back(std::move(article));
    }
    return articles;
}

} // namespace velmarin
