#include "make_samples/Book.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <functional>
#include <future>
#include <iterator>
#include <memory>

#include "make_samples/Pagination.h"
#include "make_samples/Press.h"
#include "make_samples/TextPieces.h"

namespace velmarin {

namespace {

constexpr std::size_t mostSupplementPages = 3;

using Presses = std::vector<std::unique_ptr<Press>>;

std::string numbered(const std::string& prefix, std::size_t number, PageKind kind) {
    std::array<char, 32> digits{};
    std::snprintf(digits.data(), digits.size(), "-%04zu", number);
    return prefix + digits.data() + std::string(extensionOf(kind));
}

/// The start of each page name: "webster" in the folder "Webster 1913". It keeps the pages of two dictionaries apart
/// where only the name of a page is compared.
std::string pagePrefix(const std::filesystem::path& folder) {
    std::string prefix;
    for (const char c : folder.filename().string()) {
        if (std::isalpha(static_cast<unsigned char>(c)) == 0 && c != '-')
            break;
        prefix += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return prefix;
}

/// The kana that heads the row in which `c` stands; the voiced and small ones go with the plain.
std::string kanaRow(char32_t c) {
    static constexpr std::u32string_view heads = U"あかさたなはまやらわ";
    static constexpr std::u32string_view firsts = U"ぁかさたなはまゃらゎ";
    if (c == U'セ')
        return "さ";
    if (c < 0x3041 || c > 0x3096)
        return {};
    std::string row;
    for (std::size_t i = 0; i < heads.size(); ++i) {
        if (c < firsts[i])
            break;
        row.clear();
        appendUtf8(row, heads[i]);
    }
    return row;
}

/// The letter under which a search word stands; empty for what is no letter.
std::string initialOf(const std::string& word) {
    if (word.empty())
        return {};
    if (word.starts_with("CƩ"))
        return "Ch";
    if (word.starts_with("Lʎ"))
        return "Ll";
    std::size_t at = 0;
    const char32_t c = nextCodePoint(word, at);
    if (c >= 0x3040 && c <= 0x30FF)
        return kanaRow(c);
    if (c < 'A' || (c > 'Z' && c < 0xC0))
        return {};
    return word.substr(0, at);
}

void sortArticles(Book& book) {
    std::vector<std::pair<std::string, std::size_t>> order;
    order.reserve(book.articles.size());
    for (std::size_t i = 0; i < book.articles.size(); ++i)
        order.emplace_back(indexSearchWord(book.articles[i].key, book.shape.order), i);
    std::sort(order.begin(), order.end());
    std::vector<Article> sorted;
    sorted.reserve(order.size());
    std::vector<std::size_t> newPlace(order.size());
    for (const auto& [word, i] : order) {
        newPlace[i] = sorted.size();
        sorted.push_back(std::move(book.articles[i]));
    }
    book.articles = std::move(sorted);
    for (auto& [key, article] : book.furtherKeys)
        article = newPlace[article];
}

/// Runs body(t) for every press at once. The first exception is thrown again when all have ended.
void inParallel(const Presses& presses, const std::function<void(std::size_t)>& body) {
    std::vector<std::future<void>> runs;
    for (std::size_t t = 0; t < presses.size(); ++t)
        runs.push_back(std::async(std::launch::async, body, t));
    for (auto& run : runs)
        run.wait();
    for (auto& run : runs)
        run.get();
}

/// For each article the press that sets it. A press has articles that follow each other, so that few pages hold lines
/// of two presses, which only one thread may touch.
std::vector<std::size_t> pressOf(const std::vector<Article>& articles, std::size_t presses) {
    std::vector<std::size_t> ends;
    std::size_t bytes = 0;
    for (const Article& article : articles) {
        for (const Paragraph& paragraph : article.paragraphs)
            bytes += paragraph.markup.size();
        ends.push_back(bytes);
    }
    for (std::size_t& end : ends)
        end = std::min(end * presses / std::max<std::size_t>(bytes, 1), presses - 1);
    return ends;
}

/// All lines of the book, letters between the parts of the alphabet.
std::vector<FlowLine> flowOf(const Book& book, const std::vector<std::size_t>& pressOf, const Presses& presses) {
    std::vector<std::string> heads(book.articles.size());
    std::string last;
    for (std::size_t i = 0; book.design.letterHeads && i < heads.size(); ++i) {
        const std::string initial = initialOf(indexSearchWord(book.articles[i].key, book.shape.order));
        if (!initial.empty() && initial != last)
            last = heads[i] = initial;
    }
    std::vector<std::vector<FlowLine>> set(book.articles.size());
    inParallel(presses, [&](std::size_t t) {
        for (std::size_t i = 0; i < set.size(); ++i) {
            if (pressOf[i] != t)
                continue;
            if (!heads[i].empty())
                set[i] = presses[t]->initial(heads[i], i);
            std::ranges::move(presses[t]->set(book.articles[i].paragraphs, i), std::back_inserter(set[i]));
        }
    });
    std::vector<FlowLine> flow;
    for (auto& lines : set)
        std::ranges::move(lines, std::back_inserter(flow));
    return flow;
}

/// Prints title page and pages; their list, in order.
std::vector<ListedPage> printPages(const Book& book, const std::vector<FlowLine>& flow, const std::vector<Page>& pages,
                                   const std::vector<std::size_t>& pressOf, const Presses& presses,
                                   const std::filesystem::path& folder) {
    const PageKind kind = book.design.kind;
    const std::string prefix = pagePrefix(folder);
    std::vector<ListedPage> listed{{numbered(prefix, 0, kind), "Title"}};
    for (std::size_t i = 1; i <= pages.size(); ++i)
        listed.push_back({numbered(prefix, i, kind), std::to_string(i)});
    const auto print = [&](std::size_t i, Press& press) {
        const Page& page = pages[i - 1];
        press.printPage(
            folder / "mImg" / listed[i].name, page, flow,
            {book.articles[page.firstArticle].guide, listed[i].caption, book.articles[page.lastArticle].guide});
    };
    const auto pressAt = [&](const SetLine& line) { return pressOf[flow[line.line].article]; };
    const auto isShared = [&](const Page& page) { return pressAt(page.lines.front()) != pressAt(page.lines.back()); };
    inParallel(presses, [&](std::size_t t) {
        for (std::size_t i = 1; i <= pages.size(); ++i)
            if (!isShared(pages[i - 1]) && pressAt(pages[i - 1].lines.front()) == t)
                print(i, *presses[t]);
    });
    for (std::size_t i = 1; i <= pages.size(); ++i)
        if (isShared(pages[i - 1]))
            print(i, *presses.front());
    presses.front()->printTitlePage(folder / "mImg" / listed[0].name, book.title);
    return listed;
}

/// Prints the supplements; for each article the names of its pages.
std::vector<std::vector<std::string>> printSupplements(const Book& book, const Presses& presses,
                                                       const std::filesystem::path& folder) {
    std::vector<std::vector<std::string>> names(book.articles.size());
    std::vector<std::size_t> wanted;
    for (std::size_t i = 0; i < book.articles.size(); ++i)
        if (!book.articles[i].supplement.empty())
            wanted.push_back(i);
    if (wanted.empty())
        return names;
    std::filesystem::create_directories(folder / "mPimg");
    const Design& design = book.design;
    const std::string prefix = pagePrefix(folder);
    inParallel(presses, [&](std::size_t t) {
        for (std::size_t n = t; n < wanted.size(); n += presses.size()) {
            const Article& article = book.articles[wanted[n]];
            const auto flow = presses[t]->set(article.supplement, 0);
            auto pages = paginate(flow, design.textBottom - design.textTop);
            pages.resize(std::min(pages.size(), mostSupplementPages));
            for (std::size_t k = 0; k < pages.size(); ++k) {
                const std::string name = numbered(prefix + "-s" + std::to_string(k + 1), n + 1, design.kind);
                presses[t]->printPage(folder / "mPimg" / name, pages[k], flow,
                                      {article.guide, "Supplement", std::to_string(k + 1)});
                names[wanted[n]].push_back(name);
            }
        }
    });
    return names;
}

} // namespace

BookResult makeBook(Book book, const std::filesystem::path& folder, unsigned threads) {
    std::filesystem::create_directories(folder / "mImg");
    Presses presses;
    for (unsigned t = 0; t < std::max(threads, 1U); ++t)
        presses.push_back(std::make_unique<Press>(book.design));
    sortArticles(book);
    const auto pressOfArticle = pressOf(book.articles, presses.size());
    const auto flow = flowOf(book, pressOfArticle, presses);
    const auto pages = paginate(flow, book.design.textBottom - book.design.textTop);
    const auto listed = printPages(book, flow, pages, pressOfArticle, presses, folder);
    const auto supplements = printSupplements(book, presses, folder);

    std::vector<std::string> pageOf(book.articles.size());
    for (std::size_t p = 0; p < pages.size(); ++p)
        for (const SetLine& set : pages[p].lines)
            if (flow[set.line].opensArticle)
                pageOf[flow[set.line].article] = listed[p + 1].name;
    std::vector<IndexLine> lines;
    for (std::size_t i = 0; i < book.articles.size(); ++i)
        if (!pageOf[i].empty())
            lines.push_back({book.articles[i].key, book.articles[i].note, pageOf[i], supplements[i]});
    for (const auto& [key, article] : book.furtherKeys)
        if (!pageOf[article].empty())
            lines.push_back({key, "", pageOf[article], supplements[article]});
    lines = indexLines(std::move(lines), book.shape.order);
    writeDictionary(folder, lines, listed, book.shape);
    BookResult result{listed.size(), lines.size(), 0};
    for (const auto& names : supplements)
        result.extraPages += names.size();
    return result;
}

} // namespace velmarin
