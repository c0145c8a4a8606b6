#include "make_samples/Catalogue.h"

#include <array>
#include <limits>
#include <set>
#include <string_view>

#include "make_samples/Parsers.h"
#include "make_samples/Webster.h"
#include "text/StringFields.h"

namespace velmarin {

namespace {

namespace fs = std::filesystem;

/// Markup of Webster that fills about 430 pages.
constexpr std::size_t kWebsterBytes = 3'400'000;
constexpr std::size_t kMostLanguageArticles = 5000;
constexpr std::size_t kMostSmallArticles = 900;
constexpr std::size_t kEverything = std::numeric_limits<std::size_t>::max();

// The families that the books are set in, from the font packages in tools/packages.txt. The later ones supply letters
// and ornaments that the first lacks; the last has kana and Chinese characters.
constexpr const char* kModernFace = "Old Standard TT, Linux Libertine O, EB Garamond 12, IPAexMincho";
constexpr const char* kOldFace = "EB Garamond 12, Linux Libertine O, IPAexMincho";
constexpr const char* kPlainFace = "Linux Libertine O, EB Garamond 12, IPAexMincho";

constexpr const char* kEnglish = "/usr/share/hyphen/hyph_en_US.dic";
constexpr const char* kGerman = "/usr/share/hyphen/hyph_de_DE.dic";
constexpr const char* kFrench = "/usr/share/hyphen/hyph_fr.dic";

enum class Format { Large, Small };

Book bookOf(Format format, Title title, const char* typeface, const char* hyphenation) {
    Book book;
    book.title = std::move(title);
    book.title.imprint.emplace_back("Set in type from the electronic text for trying out Velmarin.");
    Design& design = book.design;
    if (format == Format::Small)
        design = {.pageWidth = 1560,
                  .pageHeight = 2340,
                  .sideMargin = 120,
                  .headBaseline = 170,
                  .textTop = 215,
                  .textBottom = 2220,
                  .gutter = 52,
                  .head = 34,
                  .initial = 84};
    design.typeface = typeface;
    design.hyphenation = hyphenation;
    design.boldSpacing = typeface == kOldFace ? 0.03 : 0;
    return book;
}

Book webster(const fs::path& folder) {
    Book book = bookOf(Format::Large,
                       {"Webster’s Dictionary",
                        {"of the English Language", "1913", "abridged"},
                        {"From the Collaborative International Dictionary of English (GPL),",
                         "which is derived from the Revised Unabridged Dictionary of 1913."}},
                       kModernFace, kEnglish);
    book.articles = websterArticles(sourceArticles(folder, "gcide"), kWebsterBytes, "palimpsest");
    return book;
}

Book devil(const fs::path& folder) {
    Book book = bookOf(Format::Small,
                       {"The Devil’s Dictionary", {"by Ambrose Bierce", "1911"}, {"The text is in the public domain."}},
                       kOldFace, kEnglish);
    book.design.kind = PageKind::ColorJpeg;
    book.design.body = 34;
    book.design.bodyLeading = 38;
    book.design.small = 31;
    book.design.smallLeading = 35;
    book.articles = articlesOf(sourceArticles(folder, "devil"), parseDevilArticle, kEverything);
    return book;
}

Book elements(const fs::path& folder) {
    Book book = bookOf(Format::Small,
                       {"The Elements",
                        {"in the order of their numbers", "with symbols and weights"},
                        {"From the Elements database of 2000 by Jay F. Kominek, in the public domain."}},
                       kModernFace, kEnglish);
    book.design.kind = PageKind::ColorPng;
    book.design.letterHeads = false;
    book.design.body = 34;
    book.design.bodyLeading = 40;
    book.order.FormatFom = "000";
    book.independent = true;
    book.articles = articlesOf(sourceArticles(folder, "elements"), parseElement, kEverything);
    std::set<std::string> seen; // two elements have a second article, under another name
    std::erase_if(book.articles, [&](const Article& element) { return !seen.insert(element.key).second; });
    return book;
}

/// A FreeDict dictionary of one of the larger languages.
Book language(const fs::path& folder, const std::string& source, Title title, const char* typeface,
              const char* hyphenation) {
    const bool isJapanese = source.starts_with("freedict-jpn");
    title.imprint = {"From the FreeDict project’s dictionary " + source.substr(9) +
                     (isJapanese ? " (CC BY-SA)." : " (GPL).")};
    Book book = bookOf(Format::Large, std::move(title), typeface, hyphenation);
    book.design.body = isJapanese ? 37 : 35;
    book.design.bodyLeading = isJapanese ? 45 : 40;
    book.order.SpanishMode = source.starts_with("freedict-spa");
    book.order.IJUVMode = source.starts_with("freedict-lat");
    book.articles = articlesOf(sourceArticles(folder, source), isJapanese ? parseJapaneseArticle : parseFreedictArticle,
                               kMostLanguageArticles);
    return book;
}

Book pocket(const fs::path& folder, const std::string& source, const std::string& name, std::size_t number) {
    constexpr std::array faces{kOldFace, kPlainFace, kModernFace};
    const auto dash = name.find('-');
    Book book = bookOf(Format::Small,
                       {name.substr(0, dash),
                        {"and " + name.substr(dash + 1), "a pocket dictionary"},
                        {"From the FreeDict project’s dictionary " + source.substr(9) + " (GPL)."}},
                       faces[number % faces.size()], source.ends_with("eng") ? kEnglish : "");
    book.articles = articlesOf(sourceArticles(folder, source), parseFreedictArticle, kMostSmallArticles);
    return book;
}

struct Language {
    const char* name;
    const char* source;
    Title title;
    const char* typeface;
    const char* hyphenation;
};

const std::array<Language, 5> kLanguages{{
    {"Latin", "freedict-lat-deu", {"Lexicon Latinum", {"Lateinisch–deutsches Wörterbuch"}, {}}, kOldFace, kGerman},
    {"Spanish",
     "freedict-spa-eng",
     {"Diccionario español", {"Spanish–English dictionary", "in the old order of letters"}, {}},
     kPlainFace,
     kEnglish},
    {"Japanese", "freedict-jpn-fra", {"和仏辞典", {"Dictionnaire japonais–français"}, {}}, kPlainFace, kFrench},
    {"German", "freedict-deu-ell", {"Deutsches Wörterbuch", {"mit griechischen Übersetzungen"}, {}}, kModernFace, ""},
    {"French", "freedict-fra-eng", {"Dictionnaire français", {"French–English dictionary"}, {}}, kOldFace, kEnglish},
}};

/// The FreeDict dictionaries of the smaller books, with their names.
constexpr std::string_view kPocketBooks =
    "afr-deu Afrikaans-German, afr-eng Afrikaans-English, ces-eng Czech-English, dan-eng Danish-English, "
    "deu-ita German-Italian, eng-dan English-Danish, eng-gle English-Irish, eng-ita English-Italian, "
    "eng-lat English-Latin, eng-rom English-Romanian, eng-rus English-Russian, eng-srp English-Serbian, "
    "eng-swe English-Swedish, eng-swh English-Swahili, gla-deu Gaelic-German, gle-eng Irish-English, "
    "ita-deu Italian-German, ita-eng Italian-English, kha-eng Khasi-English, kur-eng Kurdish-English, "
    "slk-eng Slovak-English, slv-eng Slovenian-English, spa-por Spanish-Portuguese, swh-eng Swahili-English, "
    "tur-eng Turkish-English, wol-fra Wolof-French";

} // namespace

std::vector<Sample> allSamples() {
    std::vector<Sample> samples{{"English", "Webster 1913", "gcide", webster},
                                {"English", "Devil's Dictionary", "devil", devil},
                                {"English", "Elements", "elements", elements}};
    for (const Language& row : kLanguages)
        samples.push_back({"Languages", row.name, row.source, [&row](const fs::path& folder) {
                               return language(folder, row.source, row.title, row.typeface, row.hyphenation);
                           }});
    for (const std::string& row : Split(kPocketBooks, ", "))
        samples.push_back({"Many", row.substr(8), "freedict-" + row.substr(0, 7),
                           [row, number = samples.size()](const fs::path& folder) {
                               return pocket(folder, "freedict-" + row.substr(0, 7), row.substr(8), number);
                           }});
    return samples;
}

} // namespace velmarin
