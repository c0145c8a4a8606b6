#pragma once

#include "search/GroupModel.h"
#include "search/HitDisplay.h"
#include "store/HitItem.h"

#include <string>
#include <vector>

namespace velmarin {

class PageTabs;

/// The hits of one main window's last list-mode search, one per dictionary, and the rows of its list `LB`. The rows of
/// every window's search go to the first window's list; the hits remain with the window that searched. A row that is
/// chosen shows the hit of that number in its own window.
class HitModel {
  public:
    HitModel(const GroupModel& group, PageTabs& tabs) : group_(group), tabs_(tabs) {}

    /// Called once, before anything else.
    void showIn(HitDisplay& display) { display_ = &display; }
    void showList() { display_->showList(); }

    void clearRows();
    void addRow(const std::string& text);
    /// Gives the list the keyboard and chooses its first row. Does nothing without rows.
    void chooseFirstRow();

    void clearHits() { pHiteItems_.clear(); }
    /// Adds the hit of a dictionary, still without a page.
    HitItem& addHit(int dicIndex);

    /// Shows the hit of a row in the first tab; a row without a hit (-1 for none) only removes the message about the
    /// page. Page name and history of the tab are left as they are.
    void LB_Change(int row);
    void showInfo(const std::string& text, const std::string& reason = {}) { display_->showInfo(text, reason); }

  private:
    void show(const HitItem& hit);

    const GroupModel& group_;
    PageTabs& tabs_;
    HitDisplay* display_ = nullptr;
    std::vector<std::string> rows_;
    std::vector<HitItem> pHiteItems_;
};

} // namespace velmarin
