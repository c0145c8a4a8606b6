#include "make_samples/GcideParser.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <memory>
#include <utility>

#include <utf8proc.h>

#include "make_samples/TextPieces.h"

namespace velmarin {

namespace {

/// Marks that stand before or after the letter they belong to: "[=a]", "[a^]".
constexpr std::array<std::pair<std::string_view, std::string_view>, 14> marksBefore{{
    {"'", "\u0301"},
    {"`", "\u0300"},
    {"^", "\u0302"},
    {"\"", "\u0308"},
    {"~", "\u0303"},
    {"=", "\u0304"},
    {",", "\u0327"},
    {".", "\u0307"},
    {"-", "\u0304"},
    {"*", "\u0306"},
    {":", "\u0308"},
    {"v", "\u030C"},
    {"_", "\u0331"},
    {"@", "\u030A"},
}};

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

/// The letter that the sign between two brackets stands for; empty where it is no sign.
std::string letterOf(std::string_view sign) {
    for (const auto& [name, letter] : namedLetters)
        if (sign == name)
            return std::string(letter);
    if (sign.size() != 2)
        return {};
    for (const auto& [mark, combining] : marksBefore)
        if (sign.substr(0, 1) == mark && std::isalpha(static_cast<unsigned char>(sign[1])) != 0)
            return composed(sign[1], combining);
    if (std::isalpha(static_cast<unsigned char>(sign[0])) == 0)
        return {};
    switch (sign[1]) {
    case '^':
        return composed(sign[0], "\u0306");
    case '~':
        return composed(sign[0], "\u0303");
    case '*':
        return composed(sign[0], "\u0325");
    default:
        return {};
    }
}

std::size_t indentOf(std::string_view line) {
    const auto first = line.find_first_not_of(' ');
    return first == std::string_view::npos ? line.size() : first;
}

bool isCredit(std::string_view bracketed) {
    return bracketed.find("Webster") != std::string_view::npos || bracketed.find("WordNet") != std::string_view::npos ||
           bracketed.find("PJC") != std::string_view::npos ||
           bracketed.find("Century Dict") != std::string_view::npos ||
           (bracketed.size() == 2 && std::isdigit(static_cast<unsigned char>(bracketed[1])) != 0);
}

/// Added by the editors of the electronic text.
bool isModern(std::string_view block) {
    return block.find("1913") == std::string_view::npos &&
           (block.find("[PJC") != std::string_view::npos || block.find("[WordNet") != std::string_view::npos);
}

void removeCredits(std::string& text) {
    for (std::size_t at = text.find('['); at != std::string::npos; at = text.find('[', at + 1)) {
        const auto end = text.find(']', at);
        if (end == std::string::npos)
            return;
        if (isCredit(std::string_view(text).substr(at, end - at))) {
            text.erase(at, end - at + 1);
            at = at == 0 ? 0 : at - 1;
        }
    }
}

int openBrackets(std::string_view text) {
    int open = 0;
    for (const char c : text)
        open += c == '[' || c == '(' ? 1 : c == ']' || c == ')' ? -1 : 0;
    return open;
}

/// How many lines the heading takes. The source is filled to 65 columns, so that a line that would have had room for
/// the first word of the next ends its paragraph.
std::size_t headingLines(const std::vector<std::string_view>& lines) {
    constexpr std::size_t columns = 65;
    constexpr std::size_t mostLines = 14;
    std::string heading;
    for (std::size_t i = 0; i < lines.size() && i < mostLines; ++i) {
        heading += lines[i];
        if (i + 1 == lines.size())
            return i + 1;
        const std::string_view next = trimmed(lines[i + 1]);
        if (next.empty())
            return i + 1;
        const std::size_t word = std::min(next.find(' '), next.size());
        const bool forced = lines[i].size() + 1 + word <= columns;
        if (openBrackets(heading) <= 0 && (forced || next.starts_with("1. ")))
            return i + 1;
    }
    return 1;
}

/// A word with " ` * for accents and division: Pal"imp*sest to Pal′imp·sest. An accent divides as well.
std::string dividedWord(std::string_view coded) {
    std::string word;
    for (std::size_t i = 0; i < coded.size(); ++i) {
        if (coded[i] == '"')
            word += "′";
        else if (coded[i] == '`')
            word += "″";
        else if (coded[i] == '*')
            word += "·";
        else
            word += coded[i];
    }
    replaceEach(word, "′·", "′");
    replaceEach(word, "″·", "″");
    return word;
}

/// "n.; pl. {Mice} (mīs)." keeps the word forms alone.
std::string withoutPronunciations(std::string_view text) {
    std::string out;
    bool inside = false;
    for (const char c : text) {
        if (c == '(')
            inside = true;
        else if (c == ')')
            inside = false;
        else if (!inside && c != '{' && c != '}')
            out += c;
    }
    out = singleSpaced(out);
    replaceEach(out, " ;", ";");
    replaceEach(out, " ,", ",");
    replaceEach(out, " .", ".");
    while (out.ends_with(","))
        out.pop_back();
    return out == "." ? "" : out;
}

void parseHeading(GcideArticle& article, const std::string& heading) {
    const auto first = heading.find(" \\");
    const auto second = first == std::string::npos ? first : heading.find('\\', first + 2);
    if (second == std::string::npos)
        return;
    article.headword = gcideLetters(trimmed(heading.substr(0, first)));
    // The coded word's own signs would be taken for accents.
    article.divided = dividedWord(gcideLetters(heading.substr(first + 2, second - first - 2)));
    const std::string tail = gcideLetters(trimmed(std::string_view(heading).substr(second + 1)));
    std::string_view rest = tail;
    if (rest.starts_with("(")) {
        const auto end = rest.find(')');
        if (end != std::string_view::npos) {
            article.pronunciation = dividedWord(rest.substr(1, end - 1));
            rest.remove_prefix(end + 1);
        }
    }
    // A second spelling, with its own divided form, is passed over.
    if (const auto variant = rest.substr(0, rest.find('[')).rfind('\\'); variant != std::string_view::npos)
        rest.remove_prefix(variant + 1);
    while (rest.starts_with(",") || rest.starts_with(" "))
        rest.remove_prefix(1);
    const auto bracket = rest.find('[');
    article.wordClass = withoutPronunciations(trimmed(rest.substr(0, bracket)));
    if (bracket != std::string_view::npos)
        article.etymology = trimmed(rest.substr(bracket));
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
    article.of1913 = text.find("[1913 Webster") != std::string_view::npos;
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
        removeCredits(block);
        std::string clean = singleSpaced(block);
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
