#include "make_samples/Book.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <iterator>
#include <map>
#include <stdexcept>

#include "making/NewDictionary.h"
#include "press/Pagination.h"
#include "press/Press.h"
#include "press/Text.h"
#include "text/NumberText.h"
#include "text/Utf8.h"

namespace velmarin {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostSupplementPages = 3;

/// The name of a page: "webster-0269.tif" in the folder "Webster 1913". The first part keeps the pages of two
/// dictionaries apart where only the name of a page is compared.
std::string pageName(const fs::path& folder, const std::string& series, std::size_t number, PageKind kind) {
    static const Pattern others("[^A-Za-z-].*");
    std::string name = others.removedFrom(folder.filename().native());
    std::ranges::transform(name, name.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    const char* extension = kind == PageKind::BilevelTiff ? ".tif" : kind == PageKind::ColorPng ? ".png" : ".jpg";
    return name + "-" + series + Format(static_cast<double>(number), "0000") + extension;
}

/// The first kana of the row of `c`, which the voiced and small ones share; empty for other characters.
std::string kanaRow(char32_t c) {
    static const std::map<char32_t, std::string> heads{
        {U'ぁ', "あ"}, {U'か', "か"}, {U'さ', "さ"}, {U'た', "た"},   {U'な', "な"}, {U'は', "は"},  {U'ま', "ま"},
        {U'ゃ', "や"}, {U'ら', "ら"}, {U'ゎ', "わ"}, {U'ゖ' + 1, ""}, {U'セ', "さ"}, {U'セ' + 1, ""}};
    const auto after = heads.upper_bound(c);
    return after == heads.begin() ? "" : std::prev(after)->second;
}

/// The letter under which a search word is listed; empty if it does not begin with a letter.
std::string initialOf(const std::string& word) {
    if (word.starts_with("CƩ") || word.starts_with("Lʎ"))
        return word[0] == 'C' ? "Ch" : "Ll";
    const auto [c, length] = word.empty() ? Utf8Unit{U' ', 0} : decodeUtf8(word, 0);
    if (c >= 0x3040 && c <= 0x30FF)
        return kanaRow(c);
    return c < 'A' || (c > 'Z' && c < 0xC0) ? "" : word.substr(0, length);
}

/// All lines of the book, with letters between the parts of the alphabet.
std::vector<FlowLine> flowOf(const Book& book, const Press& press) {
    std::vector<FlowLine> flow;
    std::string last;
    for (std::size_t i = 0; i < book.articles.size(); ++i) {
        std::string initial = initialOf(indexSearchWord(book.articles[i].key, book.order));
        if (initial == last || !book.design.letterHeads)
            initial.clear();
        std::ranges::move(press.set(book.articles[i].paragraphs, i, initial), std::back_inserter(flow));
        last = initial.empty() ? last : initial;
    }
    return flow;
}

/// Prints the pages into mImg and notes in `pageOf`, for each article, the page on which it opens.
std::vector<BookPage> printPages(const Book& book, const Press& press, const fs::path& folder,
                                 std::vector<std::size_t>& pageOf) {
    const auto flow = flowOf(book, press);
    const auto pages = paginate(flow, book.design.textBottom - book.design.textTop);
    std::vector<BookPage> printed{{pageName(folder, "", 0, book.design.kind), "Title"}};
    press.printTitlePage(folder / "mImg" / printed[0].file, book.title);
    for (const Page& page : pages) {
        const std::size_t number = printed.size();
        printed.push_back({pageName(folder, "", number, book.design.kind), std::to_string(number)});
        press.printPage(
            folder / "mImg" / printed.back().file, page, flow,
            {book.articles[page.firstArticle].guide, printed.back().number, book.articles[page.lastArticle].guide});
        for (const SetLine& set : page.lines)
            if (flow[set.line].opensArticle)
                pageOf[flow[set.line].article] = number;
    }
    return printed;
}

/// Prints the supplement of article `number` into mPimg and returns the names of its pages.
std::vector<std::string> printSupplement(const Book& book, std::size_t number, const Press& press,
                                         const fs::path& folder) {
    const Article& article = book.articles[number];
    fs::create_directories(folder / "mPimg");
    const auto flow = press.set(article.supplement, 0, "");
    const auto pages = paginate(flow, book.design.textBottom - book.design.textTop);
    std::vector<std::string> names;
    for (std::size_t k = 0; k < std::min(pages.size(), kMostSupplementPages); ++k) {
        const std::string part = std::to_string(k + 1);
        names.push_back(pageName(folder, "s" + part + "-", number + 1, book.design.kind));
        press.printPage(folder / "mPimg" / names.back(), pages[k], flow, {article.guide, "Supplement", part});
    }
    return names;
}

} // namespace

std::vector<IndexLine> sortedLines(std::vector<IndexLine> lines, const IndexOrder& order) {
    std::map<std::string, std::vector<IndexLine>> byWord;
    for (IndexLine& line : lines)
        byWord[indexSearchWord(line.key, order)].push_back(std::move(line));
    lines.clear();
    for (auto& [word, same] : byWord) {
        std::vector<std::string> errata;
        for (const IndexLine& line : same)
            errata.insert(errata.end(), line.errata.begin(), line.errata.end());
        for (IndexLine& line : same)
            if (line.page == same.front().page)
                lines.push_back({line.key, line.note, line.page, errata});
    }
    return lines;
}

void makeBook(Book book, const fs::path& folder) {
    fs::create_directories(folder / "mImg");
    const Press press(book.design);
    std::ranges::stable_sort(book.articles, {},
                             [&](const Article& article) { return indexSearchWord(article.key, book.order); });
    std::vector<std::size_t> pageOf(book.articles.size());
    NewDictionary made;
    made.pages = printPages(book, press, folder, pageOf);
    made.order = book.order;
    made.independent = book.independent;
    for (std::size_t i = 0; i < book.articles.size(); ++i) {
        const Article& article = book.articles[i];
        made.lines.push_back({article.key, article.note, pageOf[i]});
        if (!article.supplement.empty())
            made.lines.back().errata = printSupplement(book, i, press, folder);
        if (!article.furtherKey.empty())
            made.lines.push_back({article.furtherKey, "", pageOf[i], made.lines.back().errata});
    }
    made.lines = sortedLines(std::move(made.lines), book.order);
    if (const Result written = writeTextMembers(made, folder, folder); !written)
        throw std::runtime_error(written.failure().message());
}

} // namespace velmarin
