#include "make_samples/Parsers.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <stdexcept>
#include <utility>

#include "press/Text.h"
#include "side/DictZip.h"
#include "side/DictdIndex.h"
#include "text/FindReplace.h"
#include "text/StringFields.h"
#include "text/Utf8.h"

namespace velmarin {

namespace {

constexpr auto kNone = std::string_view::npos;

/// Whether letters were lost before: U+FFFD, or UTF-8 read as ISO 8859-1, which shows as "Ã" or "Â" before a character
/// from U+0080 to U+00BF.
bool isDamaged(std::string_view text) {
    return text.find("\uFFFD") != kNone || text.find("Ã\xC2") != kNone || text.find("Â\xC2") != kNone;
}

/// Whether the article holds a word of abuse of a people.
bool isAbusive(std::string_view text) {
    static Pattern word("(?i)nigger");
    return word.finds(text);
}

// Columns in the text of the Devil's Dictionary.
constexpr std::size_t kVerseIndent = 4;
constexpr std::size_t kSignatureIndent = 36;
constexpr std::size_t kProseWidth = 58;

/// How many spellings of a Japanese word are printed.
constexpr std::size_t kMostSpellings = 2;

/// Whether the next line continues the last word.
bool endsInHyphen(std::string_view text) {
    return text.ends_with("-") && !text.ends_with("--");
}

bool isProse(const std::vector<std::string>& block) {
    const auto wide = std::ranges::count_if(block, [](const auto& line) { return line.size() >= kProseWidth; });
    return indentOf(block.front()) < kVerseIndent || static_cast<std::size_t>(wide) * 2 > block.size();
}

/// What a line of verse is indented by, as blanks that do not break.
std::string verseBlanks(std::size_t indent) {
    return ReplaceAllB(std::string(std::max(indent, kVerseIndent) - kVerseIndent, ' '), " ", "\u00A0");
}

void addDevilBlock(std::vector<Paragraph>& paragraphs, const std::vector<std::string>& block) {
    const bool prose = isProse(block);
    bool open = false;
    for (const std::string& line : block) {
        const std::size_t indent = indentOf(line);
        const std::string text = singleSpaced(line);
        if (indent >= kSignatureIndent)
            paragraphs.push_back({Setting::Right, true, false, smallCapitals(printedMarks(text))});
        else if (!prose)
            paragraphs.push_back({Setting::Verse, true, &line == &block.front(), verseBlanks(indent) + richText(text)});
        else if (!open || indent >= kVerseIndent * 2) // only the first line of a paragraph is indented
            paragraphs.push_back({Setting::Indented, indent >= kVerseIndent, false, richText(text)});
        else
            paragraphs.back().markup += (endsInHyphen(paragraphs.back().markup) ? "" : " ") + richText(text);
        open = prose && indent < kSignatureIndent;
    }
}

/// FreeDict's "n, sg, f" as "n. f."
std::string freedictClass(std::string_view tags) {
    static const std::map<std::string_view, std::string> forms{
        {"sg", ""}, {"masc", "m."}, {"fem", "f."}, {"neut", "n."}, {"pn", "pr. n."}};
    std::string out;
    for (const std::string& part : Split(tags, ",")) {
        const std::string tag(trimmed(part));
        const auto known = forms.find(tag);
        const std::string form = known != forms.end() ? known->second : tag.ends_with(".") ? tag : tag + ".";
        if (!form.empty())
            out += (out.empty() ? "" : " ") + form;
    }
    return out;
}

/// Pango markup of a line, its <tags> in italics.
std::string taggedText(std::string_view line) {
    std::string markup;
    for (auto end = line.find('>'); end != std::string_view::npos; end = line.find('>')) {
        const std::size_t open = line.find('<');
        if (open > end)
            break;
        markup += richText(line.substr(0, open)) + italic(freedictClass(line.substr(open + 1, end - open - 1)));
        line.remove_prefix(end + 1);
    }
    return markup + richText(line);
}

/// The Japanese word class as a French book abbreviates it.
std::string japaneseClass(std::string_view text) {
    static const std::vector<std::pair<std::string_view, const char*>> rows{
        {"(noun", "n."},    {"adjectival nouns", "adj."}, {"adjective", "adj."},         {"adverb", "adv."},
        {"verb", "v."},     {"pronoun", "pron."},         {"interjection (", "interj."}, {"conjunction", "conj."},
        {"suffix", "suff."}};
    for (const auto& [found, printed] : rows)
        if (text.find(found) != kNone)
            return printed;
    return {};
}

/// The senses of a Japanese article, the word class first.
std::string japaneseSenses(const std::vector<std::string>& lines) {
    static const Pattern notes(R"(\{[^}]*\})");
    static Pattern classed(R"(^([\d. ]*)(\((?:[^()]|\([^()]*\))*\)) *(.*)$)");
    std::string wordClass;
    std::string senses;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        std::string line = singleSpaced(notes.removedFrom(lines[i]));
        if (classed.finds(line)) {
            const std::string found = japaneseClass(classed.Substring(2));
            wordClass = wordClass.empty() ? found : wordClass;
            if (!found.empty() || line == classed.Substring(2))
                line = singleSpaced(classed.Substring(1) + classed.Substring(3));
        }
        if (!line.empty())
            senses += " " + line;
    }
    return (wordClass.empty() ? "" : italic(" " + wordClass)) + richText(senses) + ".";
}

} // namespace

std::vector<std::string> sourceArticles(const std::filesystem::path& folder, const std::string& name) {
    const FolderItem files(folder);
    const auto index = DictdIndex::open(files.Child(name + ".index"));
    auto packed = DictZip::open(files.Child(name + ".dict.dz"));
    if (!packed)
        packed = DictZip::open(files.Child(name + ".dict"));
    if (!index || !packed)
        throw std::runtime_error("cannot read " + (folder / name).string() +
                                 ".index and .dict.dz of the package dict-" + name);
    const std::vector<DictdPlace> places = index->places();
    const auto endOf = [](const DictdPlace& place) { return place.offset + place.size; };
    const std::uint64_t size = places.empty() ? 0 : endOf(std::ranges::max(places, {}, endOf));
    // In large pieces: reading single articles would unpack each chunk of the file many times.
    std::string text;
    while (text.size() < size) {
        const auto piece = packed->read(text.size(), std::min(DictZip::kLongestPiece, size - text.size()));
        if (!piece)
            throw std::runtime_error("cannot unpack " + (folder / name).string());
        text += *piece;
    }
    std::vector<std::string> articles;
    for (const DictdPlace& place : places) {
        std::string article = text.substr(place.offset, place.size);
        if (!isValidUtf8(article)) // some are in ISO 8859-1
            article = utf8OfLatin1(article);
        if (!isDamaged(article) && !isAbusive(article))
            articles.push_back(std::move(article));
    }
    return articles;
}

Article parseDevilArticle(std::string_view text) {
    // Words in capitals, then perhaps a comma, a word class and two blanks.
    static Pattern heading(
        R"(^\n*((?:[A-Z][^\sa-z,]*)(?: [A-Z][^\sa-z,]*(?![^\s,]))*)(,?)(?:(?<=,) ?([^\n]{1,22}?)(?=  ))?)");
    if (!heading.finds(text))
        return {};
    std::string key = heading.Substring(1);
    if (key.find('.') + 1 == key.size())
        key.pop_back();
    const std::string comma = heading.Substring(2);
    const std::string wordClass = heading.Substring(3);
    std::string markup = inRed(bold(key)) + comma + (wordClass.empty() ? "" : " " + italic(wordClass)) + " ";
    const auto blocks = blocksOf(linesOf(text.substr(heading.Substring(0).size())));
    std::string first;
    for (const std::string& line : blocks.front())
        (first += endsInHyphen(first) ? "" : " ") += line;
    Article article{key, key, wordClass, {{.markup = markup + richText(singleSpaced(first))}}};
    for (std::size_t i = 1; i < blocks.size(); ++i)
        addDevilBlock(article.paragraphs, blocks[i]);
    return article;
}

Article parseElement(std::string_view text) {
    static const Pattern labelled("(?m)^[ \t]*(Atomic number|Symbol|Atomic weight):.*\n?");
    const auto value = [&](const std::string& label) {
        Pattern line("(?m)^[ \t]*" + label + ": *(.*?)\\s*$");
        line.finds(text);
        return line.Substring(1);
    };
    const std::string number = value("Atomic number"), symbol = value("Symbol"), weight = value("Atomic weight");
    const std::string rest(trimmed(labelled.removedFrom(text)));
    std::string name(trimmed(rest.substr(0, rest.find('\n'))));
    if (number.empty() || number.size() > 3 || name.empty())
        return {};
    name[0] = asciiCapital(name[0]);
    std::string opening = inRed(bold(number + ".")) + bold(" " + name);
    if (!symbol.empty())
        opening += ", " + inRed(bold(symbol));
    if (!weight.empty())
        opening += ". " + italic("Atomic\u00A0weight") + "\u00A0" + escaped(weight) + ".";
    const std::string key = std::string(3 - number.size(), '0') + number;
    Article article{key, number + " " + name, name, {{.markup = opening}}, {}, name};
    if (const std::string body = singleSpaced(rest.substr(name.size())); !body.empty())
        article.paragraphs.push_back({.setting = Setting::Indented, .markup = richText(body)});
    return article;
}

Article parseFreedictArticle(std::string_view text) {
    static const Pattern pronunciation(" /[^/]*/");
    static Pattern sense(R"(^(\d+\.)? *(.*?)( \d+\.)?$)"); // some end with the number of the sense on the next line
    std::vector<std::string> lines;
    for (const std::string& line : linesOf(text))
        lines.push_back(singleSpaced(pronunciation.removedFrom(line)));
    const std::string heading = lines.empty() ? "" : lines[0];
    const std::size_t end = std::min({heading.find(" <"), heading.find(" ("), heading.size()});
    if (end == 0 || heading.find('{') < end)
        return {};
    const std::string key = heading.substr(0, end);
    std::string markup = bold(key) + taggedText(std::string_view(heading).substr(end));
    std::string last;
    bool afterNumber = false; // the last line was a number alone
    for (std::size_t i = 1; i < lines.size(); ++i) {
        if (!sense.finds(lines[i]) || sense.Substring(0).empty())
            continue;
        const std::string number = sense.Substring(1);
        const std::string line = sense.Substring(2);
        const bool runsOn = last.empty() || !number.empty() || line.starts_with("\"") || last.ends_with(")");
        if (!afterNumber && !line.starts_with(";"))
            markup += runsOn ? " " : " — ";
        if (!number.empty())
            markup += bold(number + "\u00A0");
        markup += taggedText(line);
        afterNumber = line.empty();
        last = number + line;
    }
    if (last.empty())
        return {};
    if (last.find_last_of(".?!") != last.size() - 1 && !markup.ends_with(".</i>"))
        markup += '.';
    return {key, key, "", {{.markup = markup}}};
}

Article parseJapaneseArticle(std::string_view text) {
    static Pattern common(R"(^[^\n]*\[(ichi1|news1|spec1)\])");
    static const Pattern marks(R"( /[^/]*/|\[[^\]]*\]|\((?:[^()]|\([^()]*\))*\))");
    static Pattern kana(R"(^(\xE3[\x81-\x83][\x80-\xBF])+$)"); // U+3040 to U+30FF in UTF-8
    // A note in the source runs into the translation that follows it.
    if (!common.finds(text) || text.find("Note:") != std::string_view::npos)
        return {};
    const auto lines = linesOf(text);
    std::string key;
    std::vector<std::string> spellings;
    for (const std::string& part : Split(marks.removedFrom(lines[0]), ",")) {
        const std::string word(trimmed(part));
        if (kana.finds(word))
            key = key.empty() ? word : key;
        else if (!word.empty() && spellings.size() < kMostSpellings)
            spellings.push_back(word);
    }
    if (key.empty())
        return {};
    const std::string brackets = spellings.empty() ? "" : "【" + escaped(Join(spellings, "・")) + "】";
    const std::string note = spellings.empty() ? "" : spellings[0];
    return {key, key, note, {{.markup = bold(key) + brackets + japaneseSenses(lines)}}};
}

void thinOut(std::vector<Article>& articles, std::size_t most) {
    if (articles.size() <= most)
        return;
    for (std::size_t i = 0; i < most; ++i)
        articles[i] = articles[i * articles.size() / most];
    articles.resize(most);
}

std::vector<Article> articlesOf(const std::vector<std::string>& source, Article (*parse)(std::string_view),
                                std::size_t most) {
    std::vector<Article> all;
    std::set<std::string_view> seen;
    for (const std::string& text : source)
        if (seen.insert(text).second)
            if (Article article = parse(text); !article.key.empty())
                all.push_back(std::move(article));
    if (all.size() > most)
        std::ranges::stable_sort(all, {}, &Article::key);
    thinOut(all, most);
    return all;
}

} // namespace velmarin
