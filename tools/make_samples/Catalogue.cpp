#include "make_samples/Catalogue.h"

#include <array>
#include <cstdio>
#include <limits>

#include "make_samples/GcideParser.h"
#include "make_samples/OtherParsers.h"
#include "make_samples/SourceText.h"

namespace velmarin {

namespace {

/// As much of the Webster as fills about 420 pages.
constexpr std::size_t websterBytes = 3'350'000;
constexpr std::size_t mostLanguageArticles = 5000;
constexpr std::size_t mostSmallArticles = 900;
constexpr std::size_t everything = std::numeric_limits<std::size_t>::max();

// The families that the books are set in, from the font packages in tools/packages.txt. Those after the first fill in
// for letters and ornaments that it lacks; the last has kana and Chinese characters.
constexpr const char* modernFace = "Old Standard TT, Linux Libertine O, EB Garamond 12, IPAexMincho";
constexpr const char* oldFace = "EB Garamond 12, Linux Libertine O, IPAexMincho";
constexpr const char* plainFace = "Linux Libertine O, EB Garamond 12, IPAexMincho";

std::string hyphenation(const std::string& language) {
    return "/usr/share/hyphen/hyph_" + language + ".dic";
}

/// A page of a small octavo volume.
Design octavo() {
    Design design;
    design.pageWidth = 1560;
    design.pageHeight = 2340;
    design.sideMargin = 120;
    design.headBaseline = 170;
    design.textTop = 215;
    design.textBottom = 2220;
    design.gutter = 52;
    design.head = 34;
    design.initial = 84;
    return design;
}

std::vector<std::string> imprint(const std::string& text) {
    return {text, "Set in type from the electronic text for trying out Velmarin."};
}

Book webster(const std::filesystem::path& folder) {
    Book book;
    book.title = {"Webster’s Dictionary",
                  {"of the English Language", "1913", "abridged"},
                  {"From the Collaborative International Dictionary of English (GPL),",
                   "which is derived from the Revised Unabridged Dictionary of 1913.",
                   "Set in type from the electronic text for trying out Velmarin."}};
    book.design.typeface = modernFace;
    book.design.hyphenation = hyphenation("en_US");
    book.articles = websterArticles(SourceText(folder, "gcide"), websterBytes, {"palimpsest"});
    return book;
}

Book devil(const std::filesystem::path& folder) {
    Book book;
    book.title = {
        "The Devil’s Dictionary", {"by Ambrose Bierce", "1911"}, imprint("The text is in the public domain.")};
    book.design = octavo();
    book.design.typeface = oldFace;
    book.design.hyphenation = hyphenation("en_US");
    book.design.kind = PageKind::ColourJpeg;
    book.design.body = 34;
    book.design.bodyLeading = 38;
    book.design.small = 31;
    book.design.smallLeading = 35;
    book.articles = articlesOf(SourceText(folder, "devil"), parseDevilArticle, everything);
    return book;
}

Book elements(const std::filesystem::path& folder) {
    Book book;
    book.title = {"The Elements",
                  {"in the order of their numbers", "with symbols and weights"},
                  imprint("From the Elements database of 2000 by Jay F. Kominek, in the public domain.")};
    book.design = octavo();
    book.design.typeface = modernFace;
    book.design.hyphenation = hyphenation("en_US");
    book.design.kind = PageKind::ColourPng;
    book.design.letterHeads = false;
    book.design.body = 34;
    book.design.bodyLeading = 40;
    book.shape.order.FormatFom = "000";
    book.shape.independent = true;
    std::vector<bool> seen(1000);
    const SourceText reader(folder, "elements");
    for (const std::string_view text : reader.articles()) {
        ElementArticle element = parseElement(text);
        if (element.number <= 0 || element.number > 999 || seen[static_cast<std::size_t>(element.number)])
            continue;
        seen[static_cast<std::size_t>(element.number)] = true;
        std::array<char, 8> number{};
        std::snprintf(number.data(), number.size(), "%03d", element.number);
        element.article.key = number.data();
        book.furtherKeys.emplace_back(element.name, book.articles.size());
        book.articles.push_back(std::move(element.article));
    }
    return book;
}

/// A FreeDict dictionary of one of the larger languages.
Book language(const std::filesystem::path& folder, const std::string& source, Title title, const char* typeface,
              const std::string& patterns) {
    Book book;
    book.title = std::move(title);
    book.title.imprint = imprint("From the FreeDict project’s dictionary " + source.substr(9) + " (GPL).");
    book.design.typeface = typeface;
    book.design.hyphenation = patterns;
    book.design.body = 35;
    book.design.bodyLeading = 40;
    book.articles = articlesOf(SourceText(folder, source), parseFreedictArticle, mostLanguageArticles);
    return book;
}

Book japanese(const std::filesystem::path& folder) {
    Book book;
    book.title = {"和仏辞典",
                  {"Dictionnaire japonais–français"},
                  imprint("From the FreeDict project’s dictionary jpn-fra (CC BY-SA).")};
    book.design.typeface = plainFace;
    book.design.hyphenation = hyphenation("fr");
    book.design.body = 37;
    book.design.bodyLeading = 45;
    book.design.initial = 80;
    book.articles = articlesOf(SourceText(folder, "freedict-jpn-fra"), parseJapaneseArticle, mostLanguageArticles);
    return book;
}

Book small(const std::filesystem::path& folder, const std::string& source, const std::string& name,
           std::size_t number) {
    Book book;
    const auto dash = name.find('-');
    book.title = {name.substr(0, dash), {"and " + name.substr(dash + 1), "a pocket dictionary"}, {}};
    book.title.imprint = imprint("From the FreeDict project’s dictionary " + source.substr(9) + " (GPL).");
    book.design = octavo();
    constexpr std::array faces{modernFace, oldFace, plainFace};
    book.design.typeface = faces[number % faces.size()];
    book.design.hyphenation = source.ends_with("eng") ? hyphenation("en_US") : "";
    book.design.letterHeads = true;
    book.articles = articlesOf(SourceText(folder, source), parseFreedictArticle, mostSmallArticles);
    return book;
}

struct SmallSource {
    const char* source;
    const char* name;
};

constexpr std::array<SmallSource, 26> smallSources{{
    {"freedict-afr-deu", "Afrikaans-German"},   {"freedict-afr-eng", "Afrikaans-English"},
    {"freedict-ces-eng", "Czech-English"},      {"freedict-dan-eng", "Danish-English"},
    {"freedict-deu-ita", "German-Italian"},     {"freedict-eng-dan", "English-Danish"},
    {"freedict-eng-gle", "English-Irish"},      {"freedict-eng-ita", "English-Italian"},
    {"freedict-eng-lat", "English-Latin"},      {"freedict-eng-rom", "English-Romanian"},
    {"freedict-eng-rus", "English-Russian"},    {"freedict-eng-srp", "English-Serbian"},
    {"freedict-eng-swe", "English-Swedish"},    {"freedict-eng-swh", "English-Swahili"},
    {"freedict-gla-deu", "Gaelic-German"},      {"freedict-gle-eng", "Irish-English"},
    {"freedict-ita-deu", "Italian-German"},     {"freedict-ita-eng", "Italian-English"},
    {"freedict-kha-eng", "Khasi-English"},      {"freedict-kur-eng", "Kurdish-English"},
    {"freedict-slk-eng", "Slovak-English"},     {"freedict-slv-eng", "Slovenian-English"},
    {"freedict-spa-por", "Spanish-Portuguese"}, {"freedict-swh-eng", "Swahili-English"},
    {"freedict-tur-eng", "Turkish-English"},    {"freedict-wol-fra", "Wolof-French"},
}};

} // namespace

std::vector<Sample> allSamples() {
    std::vector<Sample> samples{
        {"English", "Webster 1913", "gcide", webster},
        {"English", "Devil's Dictionary", "devil", devil},
        {"English", "Elements", "elements", elements},
        {"Languages", "Latin", "freedict-lat-deu",
         [](const auto& folder) {
             Book book = language(folder, "freedict-lat-deu",
                                  {"Lexicon Latinum", {"Lateinisch–deutsches Wörterbuch"}, {}}, oldFace, "");
             book.shape.order.IJUVMode = true;
             return book;
         }},
        {"Languages", "Spanish", "freedict-spa-eng",
         [](const auto& folder) {
             Book book =
                 language(folder, "freedict-spa-eng",
                          {"Diccionario español", {"Spanish–English dictionary", "in the old order of letters"}, {}},
                          plainFace, hyphenation("en_US"));
             book.shape.order.SpanishMode = true;
             return book;
         }},
        {"Languages", "Japanese", "freedict-jpn-fra", japanese},
        {"Languages", "German", "freedict-deu-ell",
         [](const auto& folder) {
             return language(folder, "freedict-deu-ell",
                             {"Deutsches Wörterbuch", {"mit griechischen Übersetzungen"}, {}}, modernFace, "");
         }},
        {"Languages", "French", "freedict-fra-eng",
         [](const auto& folder) {
             return language(folder, "freedict-fra-eng", {"Dictionnaire français", {"French–English dictionary"}, {}},
                             oldFace, hyphenation("en_US"));
         }},
    };
    for (std::size_t i = 0; i < smallSources.size(); ++i) {
        const std::string source = smallSources[i].source;
        const std::string name = smallSources[i].name;
        samples.push_back({"Many", name, source, [source, name, i](const std::filesystem::path& folder) {
                               return small(folder, source, name, i);
                           }});
    }
    return samples;
}

} // namespace velmarin
