#include "make_samples/Parsers.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <memory>
#include <utility>

#include <utf8proc.h>

#include "make_samples/Text.h"
#include "text/FindReplace.h"

namespace velmarin {

namespace {

/// Marks that are written before the letter they belong to, "[=a]", and what they combine to.
constexpr std::string_view marksBefore = "'`^\"~=,.-*:v_@";
constexpr std::array<const char*, marksBefore.size()> combining{"\u0301", "\u0300", "\u0302", "\u0308", "\u0303",
                                                                "\u0304", "\u0327", "\u0307", "\u0304", "\u0306",
                                                                "\u0308", "\u030C", "\u0331", "\u030A"};

constexpr std::array<std::pair<std::string_view, std::string_view>, 36> namedLetters{{
    {"ae", "æ"},     {"AE", "Æ"},    {"oe", "œ"},     {"OE", "Œ"},   {"aum", "ä"},  {"oum", "ö"},
    {"uum", "ü"},    {"eum", "ë"},   {"imac", "ī"},   {"amac", "ā"}, {"omac", "ō"}, {"umac", "ū"},
    {"emac", "ē"},   {"thorn", "þ"}, {"eth", "ð"},    {"edh", "ð"},  {"asl", "ă"},  {"add", "ạ"},
    {"udd", "ụ"},    {"oocr", "oo"}, {"=oo", "o͞o"},   {"oo^", "o͝o"}, {"ng", "ṉ"},   {"deg", "°"},
    {"root", "√"},   {"sect", "§"},  {"pounds", "£"}, {"yogh", "ȝ"}, {"th", "th"},  {"prime", "′"},
    {"bprime", "‵"}, {"flat", "♭"},  {"sharp", "♯"},  {"=ae", "ǣ"},  {"isl", "ĭ"},  {"8star", "*"},
}};

/// A letter with a mark over or under it, as one character where there is one.
std::string composed(char letter, std::string_view mark) {
    const std::string parts = letter + std::string(mark);
    utf8proc_uint8_t* whole = utf8proc_NFC(reinterpret_cast<const utf8proc_uint8_t*>(parts.c_str()));
    const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owner(whole, &std::free);
    return whole == nullptr ? parts : reinterpret_cast<const char*>(whole);
}

/// The letter that the sign between two brackets means; empty where it is no sign.
std::string letterOf(std::string_view sign) {
    for (const auto& [name, letter] : namedLetters)
        if (sign == name)
            return std::string(letter);
    const auto isLetter = [&](std::size_t i) { return std::isalpha(static_cast<unsigned char>(sign[i])) != 0; };
    if (sign.size() != 2)
        return {};
    if (const auto mark = marksBefore.find(sign[0]); mark != std::string_view::npos && isLetter(1))
        return composed(sign[1], combining[mark]);
    if (!isLetter(0))
        return {};
    // Three marks may also follow their letter: "[a^]".
    return sign[1] == '^'   ? composed(sign[0], "\u0306")
           : sign[1] == '~' ? composed(sign[0], "\u0303")
           : sign[1] == '*' ? composed(sign[0], "\u0325")
                            : std::string();
}

/// Added by the editors of the electronic text.
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
std::size_t headingLines(const std::vector<std::string_view>& lines) {
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
    std::string out = singleSpaced(pronunciation.removedFrom(text));
    for (const std::string mark : {";", ",", "."})
        out = ReplaceAllB(out, " " + mark, mark);
    out.resize(out.find_last_not_of(',') + 1);
    return out == "." ? "" : out;
}

/// headword \divided word\ (pronunciation), further spellings, word class [etymology]
void parseHeading(GcideArticle& article, const std::string& text) {
    static Pattern parts(R"(^(.*?) \\(.+?)\\(.*)$)");
    static Pattern spoken(R"(^\((.*?)\)(.*)$)");
    static Pattern tail(R"(^(?:[^\[]*\\)?[, ]*([^\[]*)(.*)$)");
    if (!parts.finds(text))
        return;
    article.headword = gcideLetters(trimmed(parts.Substring(1)));
    article.divided = dividedWord(gcideLetters(parts.Substring(2)));
    std::string rest = gcideLetters(trimmed(parts.Substring(3)));
    if (spoken.finds(rest)) {
        article.pronunciation = dividedWord(spoken.Substring(1));
        rest = spoken.Substring(2);
    }
    if (tail.finds(rest)) {
        article.wordClass = withoutPronunciations(tail.Substring(1));
        article.etymology = trimmed(tail.Substring(2));
    }
}

GcideArticle::Block::Kind kindOf(std::string_view text, std::size_t indent) {
    using Kind = GcideArticle::Block::Kind;
    if (text.starts_with("Syn:"))
        return Kind::Synonyms;
    if (text.starts_with("Note:") || text.starts_with("Usage:"))
        return Kind::Note;
    if (text.starts_with("{"))
        return Kind::Phrase;
    return indent > 7 ? Kind::Quotation : Kind::Sense;
}

} // namespace

std::string gcideLetters(std::string_view text) {
    std::string out;
    std::size_t at = 0;
    while (at < text.size()) {
        if (text[at] == '[') {
            const auto end = text.find(']', at);
            const std::string letter =
                end == std::string_view::npos || end - at > 8 ? "" : letterOf(text.substr(at + 1, end - at - 1));
            if (!letter.empty()) {
                out += letter;
                at = end + 1;
                continue;
            }
        }
        out += text[at++];
    }
    return out;
}

GcideArticle parseGcideArticle(std::string_view text) {
    GcideArticle article;
    article.length = text.size();
    while (text.starts_with("\n"))
        text.remove_prefix(1);
    const auto lines = linesOf(text);
    if (lines.empty())
        return article;
    const std::size_t heading = headingLines(lines);
    std::string joined;
    for (std::size_t i = 0; i < heading; ++i)
        joined += (i == 0 ? "" : " ") + std::string(trimmed(lines[i]));
    parseHeading(article, joined);
    std::string block;
    std::size_t indent = 0;
    const auto finish = [&] {
        if (isModern(block))
            block.clear();
        const std::string clean = singleSpaced(withoutCredits(block));
        if (!clean.empty())
            article.blocks.push_back({kindOf(clean, indent), gcideLetters(clean)});
        block.clear();
    };
    for (std::size_t i = heading; i < lines.size(); ++i) {
        if (trimmed(lines[i]).empty()) {
            finish();
            continue;
        }
        if (block.empty())
            indent = indentOf(lines[i]);
        block += ' ';
        block += lines[i];
    }
    finish();
    return article;
}

} // namespace velmarin
