#pragma once

#include "search/PageDisplay.h"
#include "store/DictionaryItem.h"

#include <optional>
#include <string>
#include <vector>

namespace velmarin {

/// The state of one tab: the page shown, the cursors in the page list and in the history, the errata and the fit. It
/// tells its display of each change.
///
/// The cursors are menu values. `BVjump`'s value is a position in the page list; `BVHistory`'s value is the history
/// index plus kHistoryRowsBeforePages.
class PageTab {
  public:
    /// @param display shows an empty tab, and must outlive this
    explicit PageTab(PageDisplay& display) : display_(&display) {}

    void reset();

    /// The name of the last page that was shown by name; empty before the first.
    const std::string& pageName() const { return pageName_; }
    bool hasPage() const { return hasPage_; }
    int jumpValue() const { return jumpValue_; }
    int historyValue() const { return historyValue_; }
    int fit() const { return fit_; }

    /// The one way by which a page is loaded.
    PageOutcome load(const FolderItem& file, int fit);
    void setPageName(const std::string& name);
    void showNoPicture() { display_->showNoPicture(); }
    void dropPage();
    void refresh() { display_->refreshPage(); }
    void scroll(int direction) { display_->mJumpScroll_vertical(direction); }
    void describe(const std::string& dictionary, const std::string& page, const std::string& problem);
    /// A page's row in the jump menu, and its file name if that differs.
    std::string titleOf(const DictionaryItem& item, const std::string& name) const;

    void enablePaging(bool enabled) { display_->enablePaging(enabled); }
    /// Replaces the rows of the jump menu; its value is 0 then.
    void setJumpRows(std::vector<std::string> captions);
    /// Moves the cursor to the nearest row. Does nothing without rows.
    void setJumpValue(int row);

    /// Adds a page to the history, and moves the cursor to it.
    void remember(DictionaryItem& item, const std::string& name);
    void setHistoryValue(int menuValue);
    void forgetHistory(DictionaryItem& item);

    void setErrata(std::vector<std::string> names);
    /// Empty for a row that does not exist.
    std::string erratum(int row) const;

    /// The value of the menu `BVimage` alone; the page keeps its fit until it is loaded or fitted again.
    void setFitValue(int fit);
    /// A fit chosen for the page shown.
    void chooseFit(int fit);

  private:
    PageDisplay* display_;
    std::string pageName_;
    bool hasPage_ = false;
    std::vector<std::string> captions_;
    int jumpValue_ = 0;
    int historyValue_ = 0;
    std::vector<std::string> errata_;
    int fit_ = kAdjustByHeight;
};

} // namespace velmarin
