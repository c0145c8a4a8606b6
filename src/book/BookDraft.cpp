#include "book/BookDraft.h"

#include "book/BookReadings.h"
#include "draft/PageNames.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

namespace velmarin {

namespace {

/// The rows that a person has set, with the names that their pages have now.
std::vector<DraftPage> setRows(const Draft& draft, const std::vector<BookPicture>& pages) {
    PageNames names;
    for (std::size_t i = 0; i < pages.size(); ++i)
        names.add(pages[i].name, i);
    std::vector<DraftPage> rows;
    for (const DraftPage& row : draft.pages) {
        if (row.state != PageState::Set)
            continue;
        rows.push_back(row);
        if (const auto place = names.placeOf(row.page))
            rows.back().page = pages[*place].name;
    }
    return rows;
}

/// The names that are in `names` and not in `others`.
std::vector<std::string> onlyIn(const std::vector<std::string>& names, const std::vector<std::string>& others) {
    const std::unordered_set<std::string> known(others.begin(), others.end());
    std::vector<std::string> found;
    std::copy_if(names.begin(), names.end(), std::back_inserter(found),
                 [&](const std::string& name) { return !known.contains(name); });
    return found;
}

} // namespace

Draft draftOfReadings(const BookFolder& book, const Draft& before) {
    const BookReadings readings(book);
    Draft draft = readings.wholeDraft(setRows(before, readings.pages()));
    keepAddedColumns(before, draft);
    return draft;
}

Result updateDraft(const BookFolder& book, const Draft& before, BookChange change, DraftUpdate& update) {
    std::vector<std::string> pages, rows;
    for (BookPicture& page : book.pages())
        pages.push_back(std::move(page.name));
    for (const DraftPage& row : before.pages)
        rows.push_back(row.page);
    if (!rows.empty())
        update = {.added = onlyIn(pages, rows), .removed = onlyIn(rows, pages)};
    const bool isCurrent =
        change == BookChange::None && !rows.empty() && update.added.empty() && update.removed.empty();
    update.draft = isCurrent ? before : draftOfReadings(book, before);
    if (change == BookChange::Unfinished) {
        const std::unordered_set<std::string> gone(update.removed.begin(), update.removed.end());
        std::copy_if(before.pages.begin(), before.pages.end(), std::back_inserter(update.draft.pages),
                     [&](const DraftPage& row) { return row.state == PageState::Set && gone.contains(row.page); });
    }
    return isCurrent ? Result() : book.saveDraft(update.draft);
}

} // namespace velmarin
