#include "book/BookBuild.h"

#include "draft/DraftEntries.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace velmarin {

namespace {

/// Gives `plan` its pages, with the rows that the draft has of them.
void takePages(const std::vector<BookPicture>& pages, const Draft& draft, BookPlan& plan) {
    std::unordered_map<std::string, const DraftPage*> rows;
    for (const DraftPage& row : draft.pages)
        rows.emplace(row.page, &row);
    for (const BookPicture& page : pages) {
        const auto found = rows.find(page.name);
        plan.draft.pages.push_back(found == rows.end() ? DraftPage{page.name} : *found->second);
        plan.dictionary.pages.push_back({page.name, plan.draft.pages.back().number});
        if (plan.draft.pages.back().state == PageState::Doubtful)
            plan.doubtful.push_back(plan.draft.pages.size() - 1);
        if (found != rows.end())
            rows.erase(found);
    }
    for (const DraftPage& row : draft.pages)
        if (const auto left = rows.find(row.page); left != rows.end() && left->second == &row)
            plan.removed.push_back(row.page);
}

/// Gives the errata of a page to the first of its entries.
void takeErrata(BookPlan& plan) {
    for (std::size_t page = 0; page < plan.draft.pages.size(); ++page) {
        std::vector<std::string> files = errataOf(plan.draft.pages[page].errata);
        const auto entry = std::find_if(plan.entries.begin(), plan.entries.end(),
                                        [page](const BookEntry& each) { return each.page == page; });
        if (entry != plan.entries.end() && !files.empty())
            entry->errata = std::move(files);
    }
}

} // namespace

Result planBook(const BookFolder& book, const BookSettings& settings, BookPlan& plan) {
    Draft draft;
    if (Result loaded = book.loadDraft(draft); !loaded)
        return loaded;
    if (draft.pages.empty())
        return Failure{book.folder(), "it has no draft yet"};
    plan = {};
    takePages(book.pages(), draft, plan);
    const KeyRule rule = keyRuleOf(settings);
    plan.entries = entriesOf(plan.draft, rule, settings.order);
    takeErrata(plan);
    IndexPlan index = planIndex(plan.entries, rule, settings.order);
    plan.misplaced = std::move(index.misplaced);
    plan.dictionary.lines = std::move(index.lines);
    plan.dictionary.pageFolder = book.pageFolder();
    if (!settings.extraPages.empty())
        plan.dictionary.extraPageFolder = FolderItem(settings.extraPages);
    plan.dictionary.order = settings.order;
    plan.dictionary.independent = settings.independent;
    plan.dictionary.about = settings.about;
    return plan.entries.empty() ? Failure{book.folder(), "its draft has no headwords"} : Result();
}

} // namespace velmarin
