#include "making/BookTable.h"

#include "making/PrintedNumbers.h"
#include "store/FileNames.h"
#include "text/StringFields.h"
#include "text/UnicodeForms.h"

#include <map>
#include <optional>
#include <unordered_map>

namespace velmarin {

namespace {

using Places = std::unordered_map<std::string, std::size_t>;

/// Finds pages by what a table calls them.
class PageFinder {
  public:
    explicit PageFinder(const std::vector<BookPage>& pages) {
        for (std::size_t i = 0; i < pages.size(); ++i) {
            byFile_.try_emplace(foldedFileName(pages[i].file), i);
            byStem_.try_emplace(foldedFileName(mFiMod_RemoveExtesionFromFileName(pages[i].file)), i);
            if (!pages[i].number.empty())
                byNumber_.try_emplace(pages[i].number, i);
        }
    }

    std::optional<std::size_t> file(const std::string& name) const { return in(byFile_, foldedFileName(name)); }

    /// Printed numbers come before file names without their extension: both may be plain numbers.
    std::optional<std::size_t> page(const std::string& name) const {
        if (const auto found = file(name))
            return found;
        if (const auto found = in(byNumber_, name))
            return found;
        return in(byStem_, foldedFileName(name));
    }

  private:
    static std::optional<std::size_t> in(const Places& places, const std::string& name) {
        const auto found = places.find(name);
        return found == places.end() ? std::nullopt : std::optional(found->second);
    }

    Places byFile_, byStem_, byNumber_;
};

/// Takes the printed numbers of rows that name their page by its file, and counts on from them.
void takeNumbers(const SeparatedValues& table, std::vector<BookPage>& pages) {
    const PageFinder finder(pages);
    for (std::size_t row = 0; row < table.rowCount(); ++row) {
        const std::string_view number = table.field(row, "number");
        const auto page = finder.page(std::string(table.field(row, "page")));
        if (!number.empty() && page)
            pages[*page].number = number;
    }
    std::vector<std::string> numbers;
    numbers.reserve(pages.size());
    for (const BookPage& page : pages)
        numbers.push_back(page.number);
    numbers = filledPrintedNumbers(std::move(numbers));
    for (std::size_t i = 0; i < pages.size(); ++i)
        pages[i].number = std::move(numbers[i]);
}

void takeRow(const SeparatedValues& table, std::size_t row, std::size_t page, GuideWords& words) {
    const std::string headword(table.field(row, "headword"));
    const std::string_view first = table.field(row, "first");
    const std::string_view last = table.field(row, "last");
    std::vector<std::string> errata = errataOf(table.field(row, "errata"));
    if (words.first.empty())
        words.first = first;
    if (!last.empty())
        words.last = last;
    if (!headword.empty())
        words.between.push_back({.headword = headword, .page = page, .errata = std::move(errata)});
    else if (words.errata.empty())
        words.errata = std::move(errata);
}

} // namespace

std::vector<std::string> errataOf(std::string_view field) {
    std::vector<std::string> files;
    for (const std::string& part : Split(field, ";"))
        if (const std::string_view file = trimmed(part); !file.empty())
            files.emplace_back(file);
    return files;
}

BookTable readBookTable(const SeparatedValues& table, std::vector<BookPage> pages, const KeyRule& rule,
                        const IndexOrder& order) {
    takeNumbers(table, pages);
    BookTable book{.pages = std::move(pages), .entries = {}, .problems = {}};
    const PageFinder finder(book.pages);
    std::map<std::size_t, GuideWords> byPage;
    for (std::size_t row = 0; row < table.rowCount(); ++row) {
        const std::string name(table.field(row, "page"));
        if (const auto page = finder.page(name))
            takeRow(table, row, *page, byPage.try_emplace(*page, GuideWords{*page}).first->second);
        else
            book.problems.push_back({table.numberOf(row), name.empty() ? "names no page" : "no page \"" + name + '"'});
    }
    std::vector<GuideWords> guides;
    guides.reserve(byPage.size());
    for (auto& [page, words] : byPage)
        guides.push_back(std::move(words));
    book.entries = entriesOf(guides, rule, order);
    return book;
}

} // namespace velmarin
