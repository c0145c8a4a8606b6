#pragma once

#include "search/GroupModel.h"
#include "search/HitDisplay.h"
#include "store/HitItem.h"

#include <string>
#include <vector>

namespace velmarin {

class PageTabs;

/// The hit list of one main window: the rows of its list `LB`, and the hits of its last list-mode search, one per
/// dictionary searched. Row n shows hit n as long as the window is the first one: rows of every window's search go to
/// the first window's list, hits stay with the window that searched.
class HitModel {
  public:
    HitModel(const GroupModel& group, PageTabs& tabs) : group_(group), tabs_(tabs) {}

    /// Called once, before anything else.
    void showIn(HitDisplay& display) { display_ = &display; }
    void showList() { display_->showList(); }

    const std::vector<std::string>& rows() const { return rows_; }
    void clearRows();
    void addRow(const std::string& text);
    /// Gives the list the keyboard and chooses its first row. Does nothing without rows.
    void chooseFirstRow();

    const std::vector<HitItem>& pHiteItems() const { return pHiteItems_; }
    void clearHits() { pHiteItems_.clear(); }
    /// Adds the hit of a dictionary, without a page so far.
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
