#include "make_scans/ScanBook.h"

#include <algorithm>
#include <array>

#include "make_samples/Parsers.h"
#include "make_samples/Webster.h"
#include "make_scans/Chance.h"
#include "making/KeyRule.h"
#include "press/Text.h"
#include "text/FindReplace.h"
#include "text/StringFields.h"
#include "text/Utf8.h"

namespace velmarin {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kAllBytes = 200'000'000;

/// `most` articles that follow each other, from a place that depends on `seed`.
void keepPart(std::vector<Article>& articles, std::size_t most, std::uint64_t seed) {
    if (articles.size() <= most)
        return;
    Chance chance(seed);
    const double from = chance.unit() * static_cast<double>(articles.size() - most);
    articles.erase(articles.begin(), articles.begin() + static_cast<std::ptrdiff_t>(from));
    articles.resize(most);
}

/// Sorts as the book does; of articles with equal search words the first stays.
void sortArticles(ScanBook& book) {
    const KeyRule rule = KeyRule::parse("", book.alike).value_or(KeyRule());
    const auto wordOf = [&](const Article& article) {
        return indexSearchWord(rule.keyOf(article.key), book.book.order);
    };
    auto& articles = book.book.articles;
    std::ranges::stable_sort(articles, {}, wordOf);
    const auto [from, to] = std::ranges::unique(articles, {}, wordOf);
    articles.erase(from, to);
}

/// Large English: three columns of small type between rules, guide words left and right, the number between them.
ScanBook english(const fs::path& folder) {
    ScanBook made;
    made.languages = "eng";
    made.book.articles = websterArticles(sourceArticles(folder, "gcide"), kAllBytes, "");
    for (Article& article : made.book.articles)
        article.supplement.clear();
    Design& design = made.book.design;
    design = {.typeface = kModernFace, .hyphenation = kEnglishPatterns, .columns = 3, .gutter = 40};
    design.body = {25, 27};
    design.small = {22, 24};
    design.head = 36;
    made.layout = {.head = HeadStyle::Split, .columnRules = true, .plateEvery = 45};
    return made;
}

/// The page of the two small books.
Design smallPage(const char* typeface, const char* hyphenation) {
    return {.typeface = typeface,
            .hyphenation = hyphenation,
            .pageWidth = 1500,
            .pageHeight = 2200,
            .sideMargin = 130,
            .headBaseline = 170,
            .textTop = 215,
            .textBottom = 2060,
            .gutter = 50,
            .head = 34};
}

/// Latin and German: two columns, "FIRST–LAST" in the middle, no rule, the number at the outer corner.
ScanBook latin(const fs::path& folder) {
    ScanBook made;
    made.languages = "lat";
    made.book.articles = articlesOf(sourceArticles(folder, "freedict-lat-deu"), parseFreedictArticle);
    made.book.order.IJUVMode = true;
    made.book.design = smallPage(kOldFace, kGermanPatterns);
    made.book.design.boldSpacing = 0.03;
    made.layout = {.head = HeadStyle::Joined,
                   .capitals = true,
                   .outerNumber = true,
                   .rule = false,
                   .running = true,
                   .letterPages = true};
    return made;
}

bool isGreek(std::string_view word) {
    for (std::size_t at = 0; at < word.size();) {
        const auto [c, length] = decodeUtf8(word, at);
        if (c < 0x370 || c > 0x3FF)
            return false;
        at += length;
    }
    return !word.empty();
}

/// The Greek words of a German-Greek article, each as an article of its own that gives the German one.
void addGreekArticles(std::vector<Article>& articles, std::string_view text) {
    const auto lines = linesOf(text);
    if (lines.size() < 2)
        return;
    const std::string german(trimmed(lines[0].substr(0, lines[0].find_first_of("/<"))));
    const std::string_view gloss = lines.size() > 2 ? trimmed(lines[2]) : std::string_view();
    for (const std::string_view part : linesOf(ReplaceAllB(std::string(lines[1]), ", ", "\n"))) {
        const std::string word(trimmed(part));
        if (!isGreek(word))
            continue;
        std::string markup = bold(word) + ", " + italic(german) + ".";
        if (!gloss.empty())
            markup += " " + escaped(gloss) + ".";
        articles.push_back({.key = word, .guide = word, .note = "", .paragraphs = {{.markup = markup}}});
    }
}

/// Greek and German: two columns, guide words left and right, the left one of the article at the top.
ScanBook greek(const fs::path& folder) {
    ScanBook made;
    made.languages = "grc";
    made.alike = "ά=α, έ=ε, ή=η, ί=ι, ό=ο, ύ=υ, ώ=ω, ϊ=ι, ϋ=υ, ΐ=ι, ΰ=υ, ς=σ";
    for (const std::string& text : sourceArticles(folder, "freedict-deu-ell"))
        addGreekArticles(made.book.articles, text);
    Design& design = made.book.design;
    design = {.typeface = kModernFace,
              .hyphenation = kGermanPatterns,
              .pageWidth = 1700,
              .pageHeight = 2500,
              .sideMargin = 140,
              .textBottom = 2380};
    design.body = {32, 37};
    made.layout = {.head = HeadStyle::Split, .bold = false, .running = true};
    return made;
}

/// French and English: two columns, no guide words, the number at the foot.
ScanBook french(const fs::path& folder) {
    ScanBook made;
    made.languages = "fra";
    made.book.articles = articlesOf(sourceArticles(folder, "freedict-fra-eng"), parseFreedictArticle);
    Design& design = made.book.design;
    design = smallPage(kPlainFace, kEnglishPatterns);
    design.headBaseline = 2140;
    design.textTop = 150;
    design.textBottom = 2080;
    design.head = 30;
    design.body = {31, 35};
    made.layout = {.head = HeadStyle::None, .numberAtFoot = true, .rule = false, .columnRules = true};
    return made;
}

/// Japanese in the order of the kana: two columns, the first word alone at the outer corner.
ScanBook japanese(const fs::path& folder) {
    ScanBook made;
    made.languages = "jpn";
    made.book.articles = articlesOf(sourceArticles(folder, "freedict-jpn-fra"), parseJapaneseArticle);
    Design& design = made.book.design;
    design = {.typeface = kPlainFace, .columns = 2};
    design.body = {37, 45};
    made.layout = {.head = HeadStyle::First};
    return made;
}

struct Row {
    std::string_view name;
    ScanBook (*make)(const fs::path& folder);
    std::size_t articlesPerPage; ///< about
};

constexpr std::array<Row, 5> kBooks{{{"english", english, 85},
                                     {"latin", latin, 55},
                                     {"greek", greek, 60},
                                     {"french", french, 60},
                                     {"japanese", japanese, 40}}};

} // namespace

bool varyLayout(ScanBook& book, std::string_view name) {
    ScanLayout& layout = book.layout;
    if (name == "left")
        layout.head = HeadStyle::Left;
    else if (name == "right")
        layout.head = HeadStyle::Right;
    else if (name == "columns")
        layout.head = HeadStyle::Columns;
    else if (name == "foot")
        layout.headAtFoot = true;
    else if (name == "no-rule")
        layout.rule = false;
    else if (name == "title")
        layout.title = layout.outerNumber = true;
    else if (name == "line-numbers")
        layout.lineNumbers = true;
    else
        return false;
    return true;
}

std::vector<std::string_view> scanBookNames() {
    std::vector<std::string_view> names;
    for (const Row& row : kBooks)
        names.push_back(row.name);
    return names;
}

std::optional<ScanBook> scanBook(std::string_view name, const fs::path& dictFolder, std::size_t pages,
                                 std::optional<std::uint64_t> partSeed) {
    const auto row = std::ranges::find(kBooks, name, &Row::name);
    if (row == kBooks.end())
        return std::nullopt;
    ScanBook made = row->make(dictFolder);
    made.book.title.name = std::string(name);
    sortArticles(made);
    const std::size_t articles = pages * row->articlesPerPage;
    if (partSeed)
        keepPart(made.book.articles, articles, *partSeed);
    else
        thinOut(made.book.articles, articles);
    return made;
}

} // namespace velmarin
