#include "book/BookDraft.h"

#include "draft/DraftMending.h"
#include "making/PrintedNumbers.h"
#include "reading/PageGuess.h"
#include "store/FileNames.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace velmarin {

namespace {

/// The rows that a person has set. A page whose picture has another extension now, because it was turned, is the same.
std::vector<DraftPage> setRows(const Draft& draft, const std::vector<BookPicture>& pages) {
    std::unordered_map<std::string, std::string> byStem;
    std::unordered_set<std::string> names;
    for (const BookPicture& page : pages) {
        names.insert(page.name);
        byStem.emplace(mFiMod_RemoveExtesionFromFileName(page.name), page.name);
    }
    std::vector<DraftPage> rows;
    for (DraftPage row : draft.pages) {
        if (row.state != PageState::Set)
            continue;
        const auto renamed = byStem.find(mFiMod_RemoveExtesionFromFileName(row.page));
        if (!names.contains(row.page) && renamed != byStem.end())
            row.page = renamed->second;
        rows.push_back(std::move(row));
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

KeyRule keyRuleOf(const BookSettings& settings) {
    return KeyRule::parse(settings.ignore, settings.alike).value_or(KeyRule());
}

void takeGivenNumbers(const std::vector<BookPicture>& pages, const BookSettings& settings, Draft& draft) {
    std::vector<std::string> numbers;
    std::unordered_set<int> seen;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const bool firstOfPage = seen.insert(pages[i].scanPage).second;
        const auto given = std::find_if(settings.numbers.begin(), settings.numbers.end(), [&](const GivenNumber& each) {
            return firstOfPage && each.page == pages[i].scanPage;
        });
        if (given == settings.numbers.end() && numbers.empty())
            continue;
        const DraftPage& row = draft.pages[i];
        const std::string setNumber = row.state == PageState::Set ? row.number : std::string();
        numbers.push_back(setNumber.empty() && given != settings.numbers.end() ? given->number : setNumber);
    }
    numbers = filledPrintedNumbers(std::move(numbers));
    for (std::size_t i = pages.size() - numbers.size(), next = 0; i < pages.size(); ++i, ++next)
        draft.pages[i].number = numbers[next];
}

Draft draftOfReadings(const BookFolder& book, const Draft& before) {
    const std::vector<BookPicture> pages = book.pages();
    Readings logged = book.readings();
    std::vector<PageReading> readings;
    for (const BookPicture& page : pages) {
        PageReading& reading = logged[page.name].reading;
        reading.page = page.name;
        readings.push_back(std::move(reading));
    }
    const std::vector<DraftPage> set = setRows(before, pages);
    Draft draft = mendedDraft(guessGuideWords(readings), set, keyRuleOf(book.settings()), book.settings().order);
    keepAddedColumns(before, draft);
    takeGivenNumbers(pages, book.settings(), draft);
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
    return update.draft == before ? Result() : book.saveDraft(update.draft);
}

} // namespace velmarin
