#pragma once

#include "search/SearchDisplay.h"

#include <functional>
#include <string>

namespace velmarin {

class BusyState;
class HitModel;
class Host;
class PageTabs;
struct GroupModel;

/// The searches of one main window: decides which dictionaries a query goes to, and shows the results in their tabs or
/// in the hit list.
class SearchModel {
  public:
    /// The first main window's hit list, to which the rows of every window go.
    using DefaultHits = std::function<HitModel&()>;

    SearchModel(GroupModel& group, PageTabs& tabs, HitModel& hits, DefaultHits defaultHits, Host& host, BusyState& busy)
        : group_(group), tabs_(tabs), hits_(hits), defaultHits_(std::move(defaultHits)), host_(host), busy_(busy) {}

    /// Called once, before anything else.
    void showIn(SearchDisplay& display) { display_ = &display; }

    /// The check box "Search separately".
    bool separately() const { return separately_; }
    void setSeparately(bool separately);

    /// Searches `query` in the tab in front, in all tabs or into the hit list.
    void search(const std::string& query);
    /// mSearch for each dictionary that has a tab, with a Yield after each. The caller holds a Busy guard.
    void searchAll(const std::string& query);

    /// Shows the page of `query` in tab `dicIndex`, unless takesPart() excludes the dictionary. If no entry is greater
    /// than the word, the tab stays as it was.
    void mSearch(const std::string& query, int dicIndex);
    /// Adds the hit of `query`, and a row for it whether or not anything was found.
    void mSearch_ListMode(const std::string& query, int dicIndex);

  private:
    void searchAllIntoList(const std::string& query);
    void searchAllTabs(const std::string& query);

    GroupModel& group_;
    PageTabs& tabs_;
    HitModel& hits_;
    DefaultHits defaultHits_;
    Host& host_;
    BusyState& busy_;
    SearchDisplay* display_ = nullptr;
    bool separately_ = false;
};

} // namespace velmarin
