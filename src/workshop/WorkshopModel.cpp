#include "workshop/WorkshopModel.h"

#include <algorithm>
#include <map>
#include <utility>

namespace velmarin {

namespace {

constexpr int kSure = 100;

bool isDoubtful(const DraftPage& page) {
    return page.state == PageState::Doubtful;
}

void setByPerson(DraftPage& page, const PageWords& words) {
    page.first = words.first;
    page.last = words.last;
    page.number = words.number;
    page.confidence = kSure;
    page.state = PageState::Set;
}

/// Both drafts have the same pages in the same order.
std::vector<std::size_t> differingRows(const Draft& one, const Draft& other) {
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < one.pages.size(); ++row)
        if (one.pages[row] != other.pages[row])
            rows.push_back(row);
    return rows;
}

} // namespace

PageWords wordsOf(const DraftPage& page) {
    return {.first = page.first, .last = page.last, .number = page.number};
}

void WorkshopModel::open(Draft draft) {
    draft_ = std::move(draft);
    history_.clear();
    current_ = firstToLookAt();
    findVisibleRows();
    display_->showCurrentPage();
    display_->showCounts();
}

void WorkshopModel::takeRead(Draft draft) {
    const std::string page = current_ ? currentPage().page : std::string();
    std::map<std::string, const DraftPage*> set;
    for (const DraftPage& row : draft_.pages)
        if (row.state == PageState::Set)
            set.emplace(row.page, &row);
    for (DraftPage& row : draft.pages)
        if (const auto found = set.find(row.page); found != set.end())
            row = *found->second;
    const bool currentChanged = !current_ || [&] {
        const auto same = [&](const DraftPage& row) { return row == currentPage(); };
        return std::none_of(draft.pages.begin(), draft.pages.end(), same);
    }();
    if (draft == draft_)
        return;
    std::swap(draft_, draft);
    const std::optional<std::size_t> place = current_;
    current_ = rowOf(page);
    if (!current_ && !draft_.pages.empty())
        current_ = place ? std::min(*place, draft_.pages.size() - 1) : firstToLookAt();
    findVisibleRows();
    if (currentChanged)
        display_->showCurrentPage();
    display_->showCounts();
    save();
}

void WorkshopModel::select(std::size_t row) {
    if (row >= draft_.pages.size() || row == current_)
        return;
    current_ = row;
    if (doubtfulOnly_)
        findVisibleRows();
    display_->showCurrentPage();
}

void WorkshopModel::step(int by) {
    if (!current_)
        return;
    const auto at = std::lower_bound(visible_.begin(), visible_.end(), *current_) - visible_.begin();
    const auto last = static_cast<std::ptrdiff_t>(visible_.size()) - 1;
    select(visible_[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(at + by, 0, last))]);
}

std::optional<std::size_t> WorkshopModel::nextDoubtful(int direction) const {
    const std::size_t count = draft_.pages.size();
    const std::size_t onward = direction > 0 ? 1 : count - 1;
    for (std::size_t steps = 1; steps <= count; ++steps)
        if (const std::size_t row = (*current_ + steps * onward) % count; isDoubtful(draft_.pages[row]))
            return row;
    return std::nullopt;
}

void WorkshopModel::goToDoubtful(int direction) {
    if (const auto row = nextDoubtful(direction))
        select(*row);
    else
        display_->showAllDone();
}

void WorkshopModel::setDoubtfulOnly(bool only) {
    if (doubtfulOnly_ == only)
        return;
    doubtfulOnly_ = only;
    findVisibleRows();
}

bool WorkshopModel::changeCurrent(const PageWords& words) {
    if (!current_)
        return false;
    Draft to = draft_;
    setByPerson(to.pages[*current_], words);
    if (to == draft_)
        return false;
    change(currentPage().page, book_.mended(to));
    return true;
}

void WorkshopModel::set(const PageWords& words) {
    if (changeCurrent(words))
        save();
}

void WorkshopModel::take(const PageWords& words) {
    if (!current_)
        return;
    const bool changed = changeCurrent(words);
    goToDoubtful(); // before the draft is saved, which waits for the disk
    if (changed)
        save();
}

void WorkshopModel::undo() {
    const Draft before = draft_;
    changeBack(history_.undo(draft_), before);
}

void WorkshopModel::redo() {
    const Draft before = draft_;
    changeBack(history_.redo(draft_), before);
}

void WorkshopModel::saveAgain() {
    if (!saved_)
        save();
}

void WorkshopModel::lookOutside() {
    const std::optional<Draft> outside = book_.changedOutside();
    if (!outside)
        return;
    std::map<std::string, const DraftPage*> rows;
    for (const DraftPage& row : outside->pages)
        rows.emplace(row.page, &row);
    Draft to = draft_;
    for (DraftPage& row : to.pages) {
        const auto found = rows.find(row.page);
        if (found == rows.end())
            continue;
        if (wordsOf(*found->second) != wordsOf(row))
            setByPerson(row, wordsOf(*found->second));
        else
            row.state = found->second->state;
    }
    keepAddedColumns(*outside, to);
    const std::vector<std::size_t> taken = differingRows(to, draft_);
    if (taken.empty())
        return;
    change(draft_.pages[taken.front()].page, book_.mended(to));
    save();
    display_->showTakenOver(taken.size());
}

void WorkshopModel::change(const std::string& page, Draft to) {
    DraftHistory::Step step{.page = page, .rows = {}};
    for (const std::size_t row : differingRows(draft_, to))
        step.rows.push_back(draft_.pages[row]);
    history_.add(std::move(step));
    std::swap(draft_, to);
    showChanges(to);
}

void WorkshopModel::changeBack(const std::optional<std::string>& page, const Draft& before) {
    if (!page)
        return;
    if (const auto row = rowOf(*page))
        current_ = row;
    showChanges(before);
    display_->showCurrentPage();
    save();
}

void WorkshopModel::showChanges(const Draft& before) {
    const std::vector<std::size_t> rows = differingRows(before, draft_);
    display_->showChangedRows(rows);
    if (doubtfulOnly_)
        findVisibleRows();
    if (std::find(rows.begin(), rows.end(), current_) != rows.end())
        display_->showCurrentPage();
    display_->showCounts();
}

void WorkshopModel::save() {
    const Result result = book_.save(draft_);
    saved_ = static_cast<bool>(result);
    display_->showSaved(result);
}

void WorkshopModel::findVisibleRows() {
    visible_.clear();
    for (std::size_t row = 0; row < draft_.pages.size(); ++row)
        if (!doubtfulOnly_ || row == current_ || isDoubtful(draft_.pages[row]))
            visible_.push_back(row);
    display_->showRows();
}

std::optional<std::size_t> WorkshopModel::firstToLookAt() const {
    if (draft_.pages.empty())
        return std::nullopt;
    const auto doubtful = std::find_if(draft_.pages.begin(), draft_.pages.end(), isDoubtful);
    return doubtful == draft_.pages.end() ? 0 : static_cast<std::size_t>(doubtful - draft_.pages.begin());
}

std::optional<std::size_t> WorkshopModel::rowOf(const std::string& page) const {
    for (std::size_t row = 0; row < draft_.pages.size(); ++row)
        if (draft_.pages[row].page == page)
            return row;
    return std::nullopt;
}

} // namespace velmarin
