#include "make_scans/ScanBook.h"

#include <algorithm>
#include <array>

#include "make_samples/Parsers.h"
#include "make_samples/Webster.h"
#include "making/KeyRule.h"
#include "press/Text.h"
#include "text/FindReplace.h"
#include "text/Utf8.h"

namespace velmarin {

namespace {

namespace fs = std::filesystem;

constexpr const char* kModernFace = "Old Standard TT, Linux Libertine O, EB Garamond 12, IPAexMincho";
constexpr const char* kOldFace = "EB Garamond 12, Linux Libertine O, IPAexMincho";
constexpr const char* kPlainFace = "Linux Libertine O, EB Garamond 12, IPAexMincho";

constexpr const char* kEnglish = "/usr/share/hyphen/hyph_en_US.dic";
constexpr const char* kGerman = "/usr/share/hyphen/hyph_de_DE.dic";

constexpr std::size_t kAllBytes = 200'000'000;

/// Every so manieth article, so that `most` are left.
void thinOut(std::vector<Article>& articles, std::size_t most) {
    if (articles.size() <= most)
        return;
    for (std::size_t i = 0; i < most; ++i)
        articles[i] = articles[i * articles.size() / most];
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
    design = {.typeface = kModernFace, .hyphenation = kEnglish, .columns = 3, .gutter = 40};
    design.body = 25;
    design.bodyLeading = 27;
    design.small = 22;
    design.smallLeading = 24;
    design.head = 36;
    made.layout = {.head = HeadStyle::Split, .columnRules = true, .plateEvery = 45};
    return made;
}

/// Latin and German: two columns, "FIRST–LAST" in the middle, no rule, the number at the outer corner.
ScanBook latin(const fs::path& folder) {
    ScanBook made;
    made.languages = "lat";
    made.book.articles = articlesOf(sourceArticles(folder, "freedict-lat-deu"), parseFreedictArticle, kAllBytes);
    made.book.order.IJUVMode = true;
    Design& design = made.book.design;
    design = {.typeface = kOldFace,
              .hyphenation = kGerman,
              .pageWidth = 1500,
              .pageHeight = 2200,
              .sideMargin = 130,
              .headBaseline = 170,
              .textTop = 215,
              .textBottom = 2060,
              .gutter = 50,
              .head = 34};
    design.body = 33;
    design.bodyLeading = 37;
    design.boldSpacing = 0.03;
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
              .hyphenation = kGerman,
              .pageWidth = 1700,
              .pageHeight = 2500,
              .sideMargin = 140,
              .textBottom = 2380};
    design.body = 32;
    design.bodyLeading = 37;
    made.layout = {.head = HeadStyle::Split, .bold = false, .running = true};
    return made;
}

/// French and English: two columns, no guide words, the number at the foot.
ScanBook french(const fs::path& folder) {
    ScanBook made;
    made.languages = "fra";
    made.book.articles = articlesOf(sourceArticles(folder, "freedict-fra-eng"), parseFreedictArticle, kAllBytes);
    Design& design = made.book.design;
    design = {.typeface = kPlainFace,
              .hyphenation = kEnglish,
              .pageWidth = 1500,
              .pageHeight = 2200,
              .sideMargin = 130,
              .headBaseline = 2140,
              .textTop = 150,
              .textBottom = 2080,
              .gutter = 50,
              .head = 30};
    design.body = 31;
    design.bodyLeading = 35;
    made.layout = {.head = HeadStyle::None, .numberAtFoot = true, .rule = false, .columnRules = true};
    return made;
}

/// Japanese in the order of the kana: two columns, the first word alone at the outer corner.
ScanBook japanese(const fs::path& folder) {
    ScanBook made;
    made.languages = "jpn";
    made.book.articles = articlesOf(sourceArticles(folder, "freedict-jpn-fra"), parseJapaneseArticle, kAllBytes);
    Design& design = made.book.design;
    design = {.typeface = kPlainFace, .columns = 2};
    design.body = 37;
    design.bodyLeading = 45;
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

std::optional<ScanBook> scanBook(std::string_view name, const fs::path& dictFolder, std::size_t pages) {
    const auto row = std::ranges::find(kBooks, name, &Row::name);
    if (row == kBooks.end())
        return std::nullopt;
    ScanBook made = row->make(dictFolder);
    made.book.title.name = std::string(name);
    sortArticles(made);
    thinOut(made.book.articles, pages * row->articlesPerPage);
    return made;
}

} // namespace velmarin
