#pragma once

#include "workshop/DraftHistory.h"
#include "workshop/WorkshopBook.h"
#include "workshop/WorkshopDisplay.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace velmarin {

/// The words of a page as its fields have them.
struct PageWords {
    std::string first = {}, last = {}, number = {};
    friend bool operator==(const PageWords&, const PageWords&) = default;
};

/// The number of pages in each PageState.
struct DraftCounts {
    std::array<std::size_t, 4> pages = {};

    std::size_t of(PageState state) const { return pages[static_cast<std::size_t>(state)]; }
    std::size_t toLookAt() const { return of(PageState::Doubtful); }
    std::size_t all() const { return pages[0] + pages[1] + pages[2] + pages[3]; }
    /// "1,612 certain, 41 mended, 49 doubtful, 0 set: 49 to look at"
    std::string text() const;
};

/// A book whose guide words a person sets: decides which page comes next, what a change does to the other pages, and
/// what can be undone. Each change is saved. Rows are those of the draft, from 0.
class WorkshopModel {
  public:
    explicit WorkshopModel(WorkshopBook& book) : book_(book) {}

    /// Called once, before anything else.
    void showIn(WorkshopDisplay& display) { display_ = &display; }
    /// Begins with this draft, at its first doubtful page.
    void open(Draft draft);
    /// Takes the rows of pages that were read meanwhile. Rows that a person has set stay.
    void takeRead(Draft draft);

    WorkshopBook& book() const { return book_; }
    const Draft& draft() const { return draft_; }
    DraftCounts counts() const;

    /// nullopt only if the draft has no page.
    std::optional<std::size_t> current() const { return current_; }
    /// The row of the current page; only if there is one.
    const DraftPage& currentPage() const { return draft_.pages[*current_]; }
    /// Makes a page the current one. Does nothing if there is no such row.
    void select(std::size_t row);
    /// Moves through the visible rows, and stays at the ends.
    void step(int by);
    /// Goes to the next doubtful page, and from the end to the beginning.
    void goToDoubtful(int direction = 1);

    /// The rows that the list shows: all, or the doubtful ones with the current one.
    const std::vector<std::size_t>& visibleRows() const { return visible_; }
    bool doubtfulOnly() const { return doubtfulOnly_; }
    void setDoubtfulOnly(bool only);

    /// Sets the current page to these words, mends the others and saves.
    void set(const PageWords& words);
    /// The same, and goes to the next doubtful page.
    void take(const PageWords& words);
    /// Sets the current page as one without headwords, and goes to the next doubtful page.
    void takeWithoutHeadwords();

    bool canUndo() const { return history_.canUndo(); }
    bool canRedo() const { return history_.canRedo(); }
    void undo();
    void redo();

    /// False if the last save failed.
    bool saved() const { return saved_; }
    /// Saves what could not be saved.
    void saveAgain();
    /// Takes over what another program has written into the draft: rows whose words differ count as set.
    void lookOutside();

  private:
    void change(Draft to, DraftHistory::Step step);
    void apply(const std::vector<DraftPage>& rows);
    std::vector<std::size_t> replaceRows(Draft to);
    void save();
    void findVisibleRows();

    WorkshopBook& book_;
    WorkshopDisplay* display_ = nullptr;
    Draft draft_;
    std::optional<std::size_t> current_;
    bool doubtfulOnly_ = false;
    std::vector<std::size_t> visible_;
    DraftHistory history_;
    bool saved_ = true;
};

} // namespace velmarin
