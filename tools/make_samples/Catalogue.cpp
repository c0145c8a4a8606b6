#include "make_samples/Catalogue.h"

#include <array>
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

Design smallPages() {
    return {.pageWidth = 1560,
            .pageHeight = 2340,
            .sideMargin = 120,
            .headBaseline = 170,
            .textTop = 215,
            .textBottom = 2220,
            .gutter = 52,
            .head = 34,
            .initial = 84};
}

Book bookOf(const Design& design, Title title, const char* typeface, const char* hyphenation) {
    Book book;
    book.title = std::move(title);
    book.design = design;
    book.title.imprint.emplace_back("Set in type from the electronic text for trying out Velmarin.");
    book.design.typeface = typeface;
    book.design.hyphenation = hyphenation;
    book.design.boldSpacing = typeface == kOldFace ? 0.03 : 0;
    return book;
}

Book webster(const fs::path& folder) {
    Book book = bookOf(Design(),
                       {"Webster’s Dictionary",
                        {"of the English Language", "1913", "abridged"},
                        {"From the Collaborative International Dictionary of English (GPL),",
                         "which is derived from the Revised Unabridged Dictionary of 1913."}},
                       kModernFace, kEnglishPatterns);
    book.articles = websterArticles(sourceArticles(folder, "gcide"), kWebsterBytes, "palimpsest");
    return book;
}

Book devil(const fs::path& folder) {
    Book book = bookOf(smallPages(),
                       {"The Devil’s Dictionary", {"by Ambrose Bierce", "1911"}, {"The text is in the public domain."}},
                       kOldFace, kEnglishPatterns);
    book.design.kind = PageKind::ColorJpeg;
    book.design.body = {34, 38};
    book.design.small = {31, 35};
    book.articles = articlesOf(sourceArticles(folder, "devil"), parseDevilArticle);
    return book;
}

Book elements(const fs::path& folder) {
    Book book = bookOf(smallPages(),
                       {"The Elements",
                        {"in the order of their numbers", "with symbols and weights"},
                        {"From the Elements database of 2000 by Jay F. Kominek, in the public domain."}},
                       kModernFace, kEnglishPatterns);
    book.design.kind = PageKind::ColorPng;
    book.design.letterHeads = false;
    book.design.body = {34, 40};
    book.order.FormatFom = "000";
    book.independent = true;
    book.articles = articlesOf(sourceArticles(folder, "elements"), parseElement);
    std::set<std::string> seen; // two elements have a second article, under another name
    std::erase_if(book.articles, [&](const Article& element) { return !seen.insert(element.key).second; });
    return book;
}

/// A FreeDict dictionary of one of the larger languages.
struct Language {
    const char* name;
    const char* source;
    Title title;
    const char* typeface;
    const char* hyphenation;
};

Book language(const fs::path& folder, const Language& row) {
    const std::string source = row.source;
    const bool isJapanese = source.starts_with("freedict-jpn");
    Title title = row.title;
    title.imprint = {"From the FreeDict project’s dictionary " + source.substr(9) +
                     (isJapanese ? " (CC BY-SA)." : " (GPL).")};
    Book book = bookOf(Design(), std::move(title), row.typeface, row.hyphenation);
    book.design.body = isJapanese ? TypeSize{37, 45} : TypeSize{35, 40};
    book.order.SpanishMode = source.starts_with("freedict-spa");
    book.order.IJUVMode = source.starts_with("freedict-lat");
    book.articles = articlesOf(sourceArticles(folder, source), isJapanese ? parseJapaneseArticle : parseFreedictArticle,
                               kMostLanguageArticles);
    return book;
}

/// A smaller book of a FreeDict dictionary. `row` is one of kPocketBooks.
Book pocket(const fs::path& folder, const std::string& row, std::size_t number) {
    constexpr std::array faces{kOldFace, kPlainFace, kModernFace};
    const std::string source = row.substr(0, 7);
    const std::vector<std::string> languages = Split(row.substr(8), "-");
    Book book = bookOf(smallPages(),
                       {languages[0],
                        {"and " + languages[1], "a pocket dictionary"},
                        {"From the FreeDict project’s dictionary " + source + " (GPL)."}},
                       faces[number % faces.size()], source.ends_with("eng") ? kEnglishPatterns : "");
    book.articles = articlesOf(sourceArticles(folder, "freedict-" + source), parseFreedictArticle, kMostSmallArticles);
    return book;
}

const std::array<Language, 5> kLanguages{{
    {"Latin",
     "freedict-lat-deu",
     {"Lexicon Latinum", {"Lateinisch–deutsches Wörterbuch"}, {}},
     kOldFace,
     kGermanPatterns},
    {"Spanish",
     "freedict-spa-eng",
     {"Diccionario español", {"Spanish–English dictionary", "in the old order of letters"}, {}},
     kPlainFace,
     kEnglishPatterns},
    {"Japanese", "freedict-jpn-fra", {"和仏辞典", {"Dictionnaire japonais–français"}, {}}, kPlainFace, kFrenchPatterns},
    {"German", "freedict-deu-ell", {"Deutsches Wörterbuch", {"mit griechischen Übersetzungen"}, {}}, kModernFace, ""},
    {"French",
     "freedict-fra-eng",
     {"Dictionnaire français", {"French–English dictionary"}, {}},
     kOldFace,
     kEnglishPatterns},
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
    std::vector<Sample> samples{{"English", "Webster 1913", webster},
                                {"English", "Devil's Dictionary", devil},
                                {"English", "Elements", elements}};
    for (const Language& row : kLanguages)
        samples.push_back({"Languages", row.name, [&row](const fs::path& folder) { return language(folder, row); }});
    for (const std::string& row : Split(kPocketBooks, ", "))
        samples.push_back({"Many", row.substr(8), [row, number = samples.size()](const fs::path& folder) {
                               return pocket(folder, row, number);
                           }});
    return samples;
}

} // namespace velmarin
