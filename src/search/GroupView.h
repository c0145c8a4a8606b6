#pragma once

#include "platform/Host.h"
#include "search/WindowState.h"

namespace velmarin {

class AnchoredLayout;
class HitList;
class PageDeck;
class QueryBar;

/// The group that a main window shows: reads it, turns its dictionaries into tabs or into the hit list, and takes all
/// of it away again.
class GroupView {
  public:
    GroupView(WindowState& state, PageDeck& deck, HitList& hitList, QueryBar& queryBar, Host& host,
              AnchoredLayout& layout)
        : state_(state), deck_(deck), hitList_(hitList), queryBar_(queryBar), host_(host), layout_(layout) {}

    /// Leaves the present group, and reads the dictionaries of `group` with its name and its check box. Nothing is
    /// shown of it yet. Raises NilObjectException for a folder that cannot be read, and has no group then.
    void read(const FolderItem& group);
    /// Shows what was read. Raises NilObjectException where a dictionary could not be opened or has no pages, after
    /// all others are shown.
    void mInitialize();
    /// Drops the group with all that shows it.
    void leave();

  private:
    void showInList();
    /// False where a dictionary has no list of pages.
    bool showInTabs();

    WindowState& state_;
    PageDeck& deck_;
    HitList& hitList_;
    QueryBar& queryBar_;
    Host& host_;
    AnchoredLayout& layout_;
    bool complete_ = true;
};

} // namespace velmarin
