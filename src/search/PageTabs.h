#pragma once

#include "search/GroupModel.h"
#include "search/PageTab.h"
#include "search/TabDisplay.h"

#include <string>
#include <vector>

namespace velmarin {

/// All tabs of one main window, and the operations that show, step or remember a page in them. In tab mode tab n shows
/// dictionary n; in list mode a tab shows the dictionary of the chosen hit.
class PageTabs {
  public:
    explicit PageTabs(GroupModel& group) : group_(group) {}

    /// Makes the first tab in `display`, which shows all changes from then on. Called once, before anything else.
    void showIn(TabDisplay& display);

    PageTab& tab(int index);
    const PageTab& tab(int index) const;
    bool hasTab(int index) const { return index >= 0 && index < count(); }
    int count() const { return static_cast<int>(tabs_.size()); }
    int front() const { return front_; }
    /// The display brought a tab to the front.
    void noteFront(int index) { front_ = index; }

    /// Removes every tab but the first, and resets that.
    void reset();
    void setCaption(int index, const std::string& caption) { display_->setTabCaption(index, caption); }
    void setFailure(int index, const std::string& failure) { display_->setTabFailure(index, failure); }
    /// Adds a tab for `item`.
    void mMakeNewTB(const DictionaryItem& item);
    /// Reads the page list of a dictionary into it and into its jump menu, and enables the page controls accordingly.
    /// Raises NilObjectException, with the controls disabled, if there is no list and none can be made.
    void mMakeBVjump(int dicIndex);
    /// Removes the page of a tab, which keeps its menus.
    void dropPage(int tabIndex);

    /// The dictionary that list mode shows.
    void setListMode_CurrentDicNum(int dicIndex) { pListMode_CurrentDicNum_ = dicIndex; }

    /// Shows a page by its name. Does nothing for an empty name, and for the name that the tab shows. Every
    /// page except that of a chosen hit is shown through this.
    void mSetPicture(const std::string& name, int tabIndex, bool addToHistory);
    // A direction is the index of a menu item: 0 is back, up or first, 1 is forward, down or last. Other values count
    // as back in mNextBack, and as forward in the three actions below.

    /// 1 is a page forward.
    void mNextBack(int direction, int tabIndex);
    /// 0 is a screenful up, 1 a screenful down.
    void mUpDown(int direction, int tabIndex);

    // A row of a tab's menu was chosen.
    void BVjump_Action(int tabIndex, int row);
    void BVHistory_Action(int tabIndex, int row);
    void BVErrata_Action(int tabIndex, int row);
    void BVimage_Action(int tabIndex, int row);

    /// In the tab in front: 0 is "History-Back", 1 "History-Next".
    void ImageHistory_Action(int direction);
    /// 0 is the tab to the left, 1 the tab to the right; wraps at the ends.
    void TabBackNext_Action(int direction);
    /// 0 is the first tab, 1 the last.
    void TabTopTail_Action(int direction);

  private:
    /// The dictionary whose pages a tab shows.
    int shownDictionary(int tabIndex) const { return group_.pListMode ? pListMode_CurrentDicNum_ : tabIndex; }
    void addTab(const std::string& caption) { tabs_.emplace_back(display_->addTab(caption)); }
    void bringToFront(int index);

    GroupModel& group_;
    TabDisplay* display_ = nullptr;
    std::vector<PageTab> tabs_;
    int front_ = 0;
    int pListMode_CurrentDicNum_ = 0;
};

} // namespace velmarin
