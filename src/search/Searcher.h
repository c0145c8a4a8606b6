#pragma once

#include "search/WindowState.h"

#include <functional>
#include <string>

namespace velmarin {

class HitList;
class PageDeck;

/// Takes a query to one dictionary and shows what comes of it, in its tab or in the hit list.
class Searcher {
  public:
    /// @param defaultList the hit list of the application's first main window, to which the rows of every window go
    Searcher(WindowState& state, PageDeck& deck, std::function<HitList&()> defaultList)
        : state_(state), deck_(deck), defaultList_(std::move(defaultList)) {}

    /// Shows the page of `query` in tab `dicIndex`, unless independence forbids it. Where no entry is greater than the
    /// word the tab stays as it was.
    void mSearch(const std::string& query, int dicIndex);
    /// Adds the hit of `query`, and a row for it whatever came of it.
    void mSearch_ListMode(const std::string& query, int dicIndex);

    HitList& defaultList() const { return defaultList_(); }

  private:
    WindowState& state_;
    PageDeck& deck_;
    std::function<HitList&()> defaultList_;
};

} // namespace velmarin
