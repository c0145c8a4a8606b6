#pragma once

#include "search/TabDisplay.h"

#include <QObject>

#include <memory>
#include <vector>

class QWidget;

namespace velmarin {

class ControlSet;
class FolderItem;
class Host;
class PageTabs;
class TabPanel;

/// The tab panel of a main window with a control set on each tab: shows a PageTabs, and tells it what the user does.
class PageDeck : public QObject, public TabDisplay {
    Q_OBJECT

  public:
    /// `TB` is made as a child of `parent`, with its first tab.
    PageDeck(PageTabs& tabs, Host& host, QWidget* parent);
    ~PageDeck() override;

    TabPanel* TB() const { return TB_; }
    /// Scrolls the page of the tab in front by a fiftieth of its height. Does nothing if there is no page.
    void scrollFront(bool down);

    PageDisplay& addTab(const std::string& caption) override;
    void removeLaterTabs() override;
    void setTabCaption(int tab, const std::string& caption) override;
    void setTabFailure(int tab, const std::string& failure) override;
    void bringTabToFront(int tab) override;
    void openErratum(const FolderItem& file, int frontTab) override;

  signals:
    /// A row of the errata menu was chosen: the file, which may not exist, and the tab in front.
    void errataChosen(const velmarin::FolderItem& file, int tabIndex);

  private:
    void connectSet(const ControlSet& set, int index);

    PageTabs& tabs_;
    Host& host_;
    TabPanel* TB_;
    std::vector<std::unique_ptr<ControlSet>> sets_;
};

} // namespace velmarin
