#pragma once

#include <string>

namespace velmarin {

class FolderItem;
class PageDisplay;

/// The tab panel of one main window, as a PageTabs tells it what to show.
class TabDisplay {
  public:
    virtual ~TabDisplay() = default;

    /// Adds a tab after the others. Its display lives until the tab is removed.
    virtual PageDisplay& addTab(const std::string& caption) = 0;
    /// Removes all tabs but the first.
    virtual void removeLaterTabs() = 0;
    virtual void setTabCaption(int tab, const std::string& caption) = 0;
    /// Shows what could not be read of the tab's dictionary in its tool tip; an empty text removes it.
    virtual void setTabFailure(int tab, const std::string& failure) = 0;
    virtual void bringTabToFront(int tab) = 0;
    /// Opens a further page of an entry, chosen while `frontTab` is in front. The file may not exist.
    virtual void openErratum(const FolderItem& file, int frontTab) = 0;
};

} // namespace velmarin
