#include "make_samples/Book.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <iterator>

#include "make_samples/DictionaryWriter.h"
#include "make_samples/Pagination.h"
#include "make_samples/Press.h"
#include "make_samples/Processes.h"
#include "make_samples/Text.h"
#include "text/Utf8.h"

namespace velmarin {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t mostSupplementPages = 3;

constexpr std::size_t fewestPagesForAProcess = 100;

/// The name of a page: "webster-0269.tif" in the folder "Webster 1913". The first part keeps the pages of two
/// dictionaries apart where only the name of a page is compared.
std::string pageName(const fs::path& folder, const char* series, std::size_t number, PageKind kind) {
    std::string name;
    for (const char c : folder.filename().string()) {
        if (std::isalpha(static_cast<unsigned char>(c)) == 0 && c != '-')
            break;
        name += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    std::array<char, 32> digits{};
    std::snprintf(digits.data(), digits.size(), "-%s%04zu", series, number);
    return name + digits.data() + extensionOf(kind);
}

/// The kana that heads the row of `c`; the voiced and small ones belong to the plain.
std::string kanaRow(char32_t c) {
    static constexpr std::u32string_view heads = U"あかさたなはまやらわ";
    static constexpr std::u32string_view firsts = U"ぁかさたなはまゃらゎ";
    std::string row;
    for (std::size_t i = 0; i < heads.size() && firsts[i] <= c && c <= U'ゖ'; ++i) {
        row.clear();
        appendUtf8(row, heads[i]);
    }
    return c == U'セ' ? "さ" : row;
}

/// The letter under which a search word is listed; empty for what is no letter.
std::string initialOf(const std::string& word) {
    if (word.starts_with("CƩ") || word.starts_with("Lʎ"))
        return word[0] == 'C' ? "Ch" : "Ll";
    std::size_t at = 0;
    const char32_t c = word.empty() ? U' ' : nextCodePoint(word, at);
    if (c >= 0x3040 && c <= 0x30FF)
        return kanaRow(c);
    return c < 'A' || (c > 'Z' && c < 0xC0) ? "" : word.substr(0, at);
}

void sortArticles(Book& book) {
    std::vector<std::pair<std::string, std::size_t>> order;
    for (const Article& article : book.articles)
        order.emplace_back(indexSearchWord(article.key, book.order), order.size());
    std::ranges::sort(order);
    std::vector<Article> sorted;
    std::vector<std::size_t> newPlace(order.size());
    for (const auto& [word, i] : order) {
        newPlace[i] = sorted.size();
        sorted.push_back(std::move(book.articles[i]));
    }
    book.articles = std::move(sorted);
    for (auto& [key, article] : book.furtherKeys)
        article = newPlace[article];
}

/// All lines of the book, letters between the parts of the alphabet.
std::vector<FlowLine> flowOf(const Book& book, Press& press) {
    std::vector<FlowLine> flow;
    std::string last;
    for (std::size_t i = 0; i < book.articles.size(); ++i) {
        std::string initial;
        if (book.design.letterHeads)
            initial = initialOf(indexSearchWord(book.articles[i].key, book.order));
        const bool opensPart = !initial.empty() && initial != last;
        std::ranges::move(press.set(book.articles[i].paragraphs, i, opensPart ? initial : ""),
                          std::back_inserter(flow));
        if (opensPart)
            last = initial;
    }
    return flow;
}

/// Prints the pages into mImg and notes for each article the one on which it opens.
std::vector<ListedPage> printPages(const Book& book, Press& press, const fs::path& folder, std::size_t atOnce,
                                   std::vector<std::string>& pageOf) {
    const auto flow = flowOf(book, press);
    const auto pages = paginate(flow, book.design.textBottom - book.design.textTop);
    std::vector<ListedPage> listed;
    for (std::size_t i = 0; i <= pages.size(); ++i)
        listed.push_back({pageName(folder, "", i, book.design.kind), i == 0 ? "Title" : std::to_string(i)});
    const std::size_t parts = std::min(atOnce, pages.size() / fewestPagesForAProcess + 1);
    inProcesses(parts, parts, [&](std::size_t part) {
        if (part == 0)
            press.printTitlePage(folder / "mImg" / listed[0].name, book.title);
        for (std::size_t i = part; i < pages.size(); i += parts)
            press.printPage(folder / "mImg" / listed[i + 1].name, pages[i], flow,
                            {book.articles[pages[i].firstArticle].guide, listed[i + 1].caption,
                             book.articles[pages[i].lastArticle].guide});
    });
    for (std::size_t i = 0; i < pages.size(); ++i)
        for (const SetLine& set : pages[i].lines)
            if (flow[set.line].opensArticle)
                pageOf[flow[set.line].article] = listed[i + 1].name;
    return listed;
}

/// Prints an article's supplement into mPimg; the names of its pages.
std::vector<std::string> printSupplement(const Book& book, std::size_t number, Press& press, const fs::path& folder) {
    const Article& article = book.articles[number];
    fs::create_directories(folder / "mPimg");
    const auto flow = press.set(article.supplement, 0, "");
    const auto pages = paginate(flow, book.design.textBottom - book.design.textTop);
    std::vector<std::string> names;
    for (std::size_t k = 0; k < std::min(pages.size(), mostSupplementPages); ++k) {
        const std::string part = std::to_string(k + 1);
        names.push_back(pageName(folder, ("s" + part + "-").c_str(), number + 1, book.design.kind));
        press.printPage(folder / "mPimg" / names.back(), pages[k], flow, {article.guide, "Supplement", part});
    }
    return names;
}

} // namespace

void makeBook(Book book, const fs::path& folder, std::size_t atOnce) {
    fs::create_directories(folder / "mImg");
    Press press(book.design);
    sortArticles(book);
    std::vector<std::string> pageOf(book.articles.size());
    const auto listed = printPages(book, press, folder, atOnce, pageOf);
    std::vector<IndexLine> lines;
    for (std::size_t i = 0; i < book.articles.size(); ++i) {
        lines.push_back({book.articles[i].key, book.articles[i].note, pageOf[i], {}});
        if (!book.articles[i].supplement.empty())
            lines.back().extraPages = printSupplement(book, i, press, folder);
    }
    for (const auto& [key, article] : book.furtherKeys)
        lines.push_back({key, "", pageOf[article], lines[article].extraPages});
    writeDictionary(folder, indexLines(std::move(lines), book.order), listed, book);
}

} // namespace velmarin
