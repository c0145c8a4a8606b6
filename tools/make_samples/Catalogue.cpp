#include "make_samples/Catalogue.h"

#include <array>
#include <limits>
#include <set>

#include "make_samples/Parsers.h"

namespace velmarin {

namespace {

namespace fs = std::filesystem;

/// As much of the Webster as fills about 430 pages.
constexpr std::size_t websterBytes = 3'400'000;
constexpr std::size_t mostLanguageArticles = 5000;
constexpr std::size_t mostSmallArticles = 900;
constexpr std::size_t everything = std::numeric_limits<std::size_t>::max();

// The families that the books are set in, from the font packages in tools/packages.txt. Those after the first fill in
// for letters and ornaments that it lacks; the last has kana and Chinese characters.
constexpr const char* modernFace = "Old Standard TT, Linux Libertine O, EB Garamond 12, IPAexMincho";
constexpr const char* oldFace = "EB Garamond 12, Linux Libertine O, IPAexMincho";
constexpr const char* plainFace = "Linux Libertine O, EB Garamond 12, IPAexMincho";

constexpr const char* english = "/usr/share/hyphen/hyph_en_US.dic";
constexpr const char* german = "/usr/share/hyphen/hyph_de_DE.dic";
constexpr const char* french = "/usr/share/hyphen/hyph_fr.dic";

Book bookOf(Title title, const char* typeface, const char* hyphenation) {
    Book book;
    book.title = std::move(title);
    book.title.imprint.emplace_back("Set in type from the electronic text for trying out Velmarin.");
    book.design.typeface = typeface;
    book.design.hyphenation = hyphenation;
    book.design.boldSpacing = typeface == oldFace ? 0.03 : 0;
    return book;
}

/// With pages as of a small volume.
Book smallBookOf(Title title, const char* typeface, const char* hyphenation) {
    Book book = bookOf(std::move(title), typeface, hyphenation);
    Design& design = book.design;
    design.pageWidth = 1560;
    design.pageHeight = 2340;
    design.sideMargin = 120;
    design.headBaseline = 170;
    design.textTop = 215;
    design.textBottom = 2220;
    design.gutter = 52;
    design.head = 34;
    design.initial = 84;
    return book;
}

Book webster(const fs::path& folder) {
    Book book = bookOf({"Webster’s Dictionary",
                        {"of the English Language", "1913", "abridged"},
                        {"From the Collaborative International Dictionary of English (GPL),",
                         "which is derived from the Revised Unabridged Dictionary of 1913."}},
                       modernFace, english);
    book.articles = websterArticles(SourceText(folder, "gcide"), websterBytes, "palimpsest");
    return book;
}

Book devil(const fs::path& folder) {
    Book book =
        smallBookOf({"The Devil’s Dictionary", {"by Ambrose Bierce", "1911"}, {"The text is in the public domain."}},
                    oldFace, english);
    book.design.kind = PageKind::ColourJpeg;
    book.design.body = 34;
    book.design.bodyLeading = 38;
    book.design.small = 31;
    book.design.smallLeading = 35;
    book.articles = articlesOf(SourceText(folder, "devil"), parseDevilArticle, everything);
    return book;
}

Book elements(const fs::path& folder) {
    Book book = smallBookOf({"The Elements",
                             {"in the order of their numbers", "with symbols and weights"},
                             {"From the Elements database of 2000 by Jay F. Kominek, in the public domain."}},
                            modernFace, english);
    book.design.kind = PageKind::ColourPng;
    book.design.letterHeads = false;
    book.design.body = 34;
    book.design.bodyLeading = 40;
    book.order.FormatFom = "000";
    book.independent = true;
    book.articles = articlesOf(SourceText(folder, "elements"), parseElement, everything);
    std::set<std::string> seen; // two elements are there under a second name too
    std::erase_if(book.articles, [&](const Article& element) { return !seen.insert(element.key).second; });
    for (std::size_t i = 0; i < book.articles.size(); ++i)
        book.furtherKeys.emplace_back(book.articles[i].note, i);
    return book;
}

/// A FreeDict dictionary of one of the larger languages.
Book language(const fs::path& folder, const std::string& source, Title title, const char* typeface,
              const char* hyphenation) {
    const bool isJapanese = source.starts_with("freedict-jpn");
    title.imprint = {"From the FreeDict project’s dictionary " + source.substr(9) +
                     (isJapanese ? " (CC BY-SA)." : " (GPL).")};
    Book book = bookOf(std::move(title), typeface, hyphenation);
    book.design.body = isJapanese ? 37 : 35;
    book.design.bodyLeading = isJapanese ? 45 : 40;
    book.order.SpanishMode = source.starts_with("freedict-spa");
    book.order.IJUVMode = source.starts_with("freedict-lat");
    book.articles = articlesOf(SourceText(folder, source), isJapanese ? parseJapaneseArticle : parseFreedictArticle,
                               mostLanguageArticles);
    return book;
}

Book pocket(const fs::path& folder, const std::string& source, const std::string& name, std::size_t number) {
    constexpr std::array faces{modernFace, oldFace, plainFace};
    const auto dash = name.find('-');
    Book book = smallBookOf({name.substr(0, dash),
                             {"and " + name.substr(dash + 1), "a pocket dictionary"},
                             {"From the FreeDict project’s dictionary " + source.substr(9) + " (GPL)."}},
                            faces[number % faces.size()], source.ends_with("eng") ? english : "");
    book.articles = articlesOf(SourceText(folder, source), parseFreedictArticle, mostSmallArticles);
    return book;
}

struct Language {
    const char* name;
    const char* source;
    Title title;
    const char* typeface;
    const char* hyphenation;
};

const std::array<Language, 5> languages{{
    {"Latin", "freedict-lat-deu", {"Lexicon Latinum", {"Lateinisch–deutsches Wörterbuch"}, {}}, oldFace, german},
    {"Spanish",
     "freedict-spa-eng",
     {"Diccionario español", {"Spanish–English dictionary", "in the old order of letters"}, {}},
     plainFace,
     english},
    {"Japanese", "freedict-jpn-fra", {"和仏辞典", {"Dictionnaire japonais–français"}, {}}, plainFace, french},
    {"German", "freedict-deu-ell", {"Deutsches Wörterbuch", {"mit griechischen Übersetzungen"}, {}}, modernFace, ""},
    {"French", "freedict-fra-eng", {"Dictionnaire français", {"French–English dictionary"}, {}}, oldFace, english},
}};

constexpr std::array<std::pair<const char*, const char*>, 26> pocketBooks{{
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
    std::vector<Sample> samples{{"English", "Webster 1913", "gcide", webster},
                                {"English", "Devil's Dictionary", "devil", devil},
                                {"English", "Elements", "elements", elements}};
    for (const Language& row : languages)
        samples.push_back({"Languages", row.name, row.source, [&row](const fs::path& folder) {
                               return language(folder, row.source, row.title, row.typeface, row.hyphenation);
                           }});
    for (std::size_t i = 0; i < pocketBooks.size(); ++i) {
        const std::pair<std::string, std::string> row = pocketBooks[i];
        samples.push_back({"Many", row.second, row.first,
                           [row, i](const fs::path& folder) { return pocket(folder, row.first, row.second, i); }});
    }
    return samples;
}

} // namespace velmarin
