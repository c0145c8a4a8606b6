#pragma once

#include "search/ControlSet.h"
#include "search/WindowState.h"

#include <QObject>

#include <string>
#include <vector>

namespace velmarin {

class TabPanel;

/// The tabs of a main window with their control sets, and all that shows, steps or remembers a page in them.
class PageDeck : public QObject {
    Q_OBJECT

  public:
    /// `TB` is made as a child of `parent`, with its first tab.
    PageDeck(WindowState& state, Host& host, QWidget* parent);

    TabPanel* TB() const { return TB_; }
    const ControlSet& set(int index) const;
    int setCount() const { return static_cast<int>(sets_.size()); }

    /// Removes every tab but the first and puts that one back as it was at the start.
    void reset();
    /// Adds a tab for `item` with a control set of its own.
    void mMakeNewTB(const DictionaryItem& item);
    /// Reads the page list of a dictionary into it and into its jump menu, and enables the page controls accordingly.
    /// Raises NilObjectException, with the controls disabled, where there is no list and none can be made.
    void mMakeBVjump(int dicIndex);

    /// The one way by which a named page comes to a tab, outside the hit list.
    void mSetPicture(const std::string& name, int tabIndex, bool addToHistory);
    /// A page as readers and files call it: its row in the tab's jump menu, and its file name where that differs.
    std::string pageTitle(const DictionaryItem& item, const std::string& name, int tabIndex) const;
    /// Direction 1 is a page forward, any other a page back.
    void mNextBack(int direction, int tabIndex);
    /// 0 is a screenful up, 1 one down.
    void mUpDown(int direction, int tabIndex);
    void showErrata(int tabIndex, const std::vector<std::string>& names);

    /// 0 is "History-Back", any other "History-Next", in the tab in front.
    void ImageHistory_Action(int direction);
    /// 0 is the tab to the left, any other the one to the right, round the ends.
    void TabBackNext_Action(int direction);
    /// 0 is the first tab, any other the last.
    void TabTopTail_Action(int direction);

  signals:
    /// A row of the errata menu was chosen: the file, which may not exist, and the tab in front.
    void errataChosen(const velmarin::FolderItem& file, int tabIndex);

  private:
    void addSet(QWidget* panel);
    void BVjump_Action(int index);
    void BVHistory_Action(int index);
    void BVErrata_Action(int index);
    void BVimage_Action(int index);

    WindowState& state_;
    Host& host_;
    TabPanel* TB_;
    std::vector<ControlSet> sets_;
};

} // namespace velmarin
