#pragma once

#include "draft/DraftCounts.h"
#include "workshop/DraftHistory.h"
#include "workshop/WorkshopBook.h"
#include "workshop/WorkshopDisplay.h"

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

PageWords wordsOf(const DraftPage& page);

/// A book whose guide words a person sets: decides which page comes next, what a change does to the other pages, and
/// what can be undone. Each change is saved. Rows are those of the draft, from 0.
class WorkshopModel {
  public:
    explicit WorkshopModel(WorkshopBook& book) : book_(book) {}

    /// Called once, before anything else.
    void showIn(WorkshopDisplay& display) { display_ = &display; }
    /// Begins with this draft, at its first doubtful page.
    void open(Draft draft);
    /// Takes the rows of pages that were read meanwhile, and saves. Rows that a person has set stay.
    void takeRead(Draft draft);

    WorkshopBook& book() const { return book_; }
    const Draft& draft() const { return draft_; }
    DraftCounts counts() const { return DraftCounts(draft_); }

    /// nullopt only if the draft has no page.
    std::optional<std::size_t> current() const { return current_; }
    /// Only if there is a current page.
    const DraftPage& currentPage() const { return draft_.pages[*current_]; }
    /// Makes a page the current one. Does nothing if there is no such row.
    void select(std::size_t row);
    /// Moves through the visible rows, and stays at the ends.
    void step(int by);
    /// The doubtful page that comes next, or with -1 the one before, from one end of the book to the other; the current
    /// one comes last. nullopt if no page is doubtful.
    std::optional<std::size_t> nextDoubtful(int direction = 1) const;
    /// Goes to the next doubtful page, or with -1 to the one before; from one end of the book to the other.
    void goToDoubtful(int direction = 1);

    /// The rows that the list shows: all, or the doubtful ones and the current one.
    const std::vector<std::size_t>& visibleRows() const { return visible_; }
    bool doubtfulOnly() const { return doubtfulOnly_; }
    void setDoubtfulOnly(bool only);

    /// Sets the current page to these words, mends the others and saves. A page without words has no headwords. Does
    /// nothing if it is so already.
    void set(const PageWords& words);
    /// The same, and goes to the next doubtful page.
    void take(const PageWords& words);

    bool canUndo() const { return history_.canUndo(); }
    bool canRedo() const { return history_.canRedo(); }
    void undo();
    void redo();

    /// False if the last save failed.
    bool saved() const { return saved_; }
    /// Saves what could not be saved.
    void saveAgain();
    /// Takes over what another program has written into the draft. Rows with other words count as set.
    void lookOutside();

  private:
    /// Gives the current page these words. False if it has them already.
    bool changeCurrent(const PageWords& words);
    /// Makes these the rows of the draft, and notes the change of `page`.
    void change(const std::string& page, Draft to);
    void changeBack(const std::optional<std::string>& page, const Draft& before);
    /// Tells the display which rows differ from those before.
    void showChanges(const Draft& before);
    void save();
    void findVisibleRows();
    /// The first doubtful page, or else the first one; nullopt if there is no page.
    std::optional<std::size_t> firstToLookAt() const;
    std::optional<std::size_t> rowOf(const std::string& page) const;

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
