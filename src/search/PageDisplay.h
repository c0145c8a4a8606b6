#pragma once

#include "files/FolderItem.h"

#include <string>
#include <vector>

namespace velmarin {

/// How an attempt to show a page ended.
struct PageOutcome {
    /// The file was decoded and is shown.
    bool shown = false;
    /// A page is shown: this one, or after a failure the one before it, if the display has kept that.
    bool anyPage = false;
    /// Why the page is not shown, or what is damaged in it; empty if all is well.
    std::string problem;
};

/// Shows what a PageTab tells it to: the page controls of one tab. It decides nothing, and is never asked for what it
/// shows.
class PageDisplay {
  public:
    virtual ~PageDisplay() = default;

    /// Resets all controls to those of an empty tab.
    virtual void showEmptyTab() = 0;

    /// Decodes a page and shows it in the given fit, which is an ImageMode.
    virtual PageOutcome showPage(const FolderItem& file, int fit) = 0;
    /// Writes "No Picture" over the page area.
    virtual void showNoPicture() = 0;
    /// Removes the page; takes effect with the next `refreshPage`.
    virtual void dropPage() = 0;
    /// Fits the page in another way; takes effect with the next `refreshPage`.
    virtual void fitPage(int fit) = 0;
    /// Has repainted when it returns.
    virtual void refreshPage() = 0;
    /// Scrolls the page: direction 0 is a screenful up, 1 one down.
    virtual void mJumpScroll_vertical(int direction) = 0;

    /// The label `ImageNameST`.
    virtual void showPageName(const std::string& name) = 0;
    /// Names the page in tool tips and to screen readers, with `problem` as in PageOutcome.
    virtual void describePage(const std::string& dictionary, const std::string& page, const std::string& problem) = 0;
    /// Enables the seven controls that need pages.
    virtual void enablePaging(bool enabled) = 0;

    /// Replaces the rows of the menu `BVjump`.
    virtual void showJumpRows(const std::vector<std::string>& captions) = 0;
    virtual void showJumpValue(int menuValue) = 0;
    /// Resets the menu `BVHistory` to the row "Delete" and the separator.
    virtual void clearHistory() = 0;
    virtual void addHistoryRow(const std::string& name) = 0;
    virtual void showHistoryValue(int menuValue) = 0;
    /// Replaces the rows of the menu `BVErrata`, which is enabled if there are any.
    virtual void showErrata(const std::vector<std::string>& names) = 0;
    /// The value of the menu `BVimage`, which may have no row.
    virtual void showFitValue(int menuValue) = 0;
};

} // namespace velmarin
