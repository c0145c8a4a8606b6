#pragma once

#include "search/WindowModel.h"

#include <memory>

class QMainWindow;
class QWidget;

namespace velmarin {

class AboutPanel;
class AnchoredLayout;
class GroupPicker;
class GroupPort;
class HitList;
class NoGroupNotice;
class PageDeck;
class QueryBar;
class SideAccess;
class SideButton;
class TabPages;
struct WindowServices;

/// The parts of a main window and how they are connected. A part that is a QObject belongs to `content`.
struct MainWindowParts {
    /// Makes the window's central widget and the parts in it.
    MainWindowParts(QMainWindow& window, GroupPort& groupPort, const WindowServices& services);
    ~MainWindowParts();

    WindowModel model;
    QWidget* content = nullptr;
    AnchoredLayout* layout = nullptr;
    GroupPicker* groupPicker = nullptr;
    PageDeck* deck = nullptr;
    QueryBar* queryBar = nullptr;
    HitList* hitList = nullptr;
    std::unique_ptr<SideAccess> sideAccess;
    SideButton* sideButton = nullptr;
    AboutPanel* about = nullptr;
    std::unique_ptr<NoGroupNotice> notice;
    std::shared_ptr<TabPages> pages;

  private:
    void setTabOrder() const;
    void connectParts(const WindowServices& services) const;
};

} // namespace velmarin
