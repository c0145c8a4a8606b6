#pragma once

#include "view/PagePort.h"

namespace velmarin {

class PageTabs;
struct GroupModel;

/// The pages of a main window; the page image window pages through them.
class TabPages : public PagePort {
  public:
    TabPages(const GroupModel& group, PageTabs& tabs) : group_(group), tabs_(tabs) {}

    bool hasTab(int tab) const override;
    void mNextBack(int direction, int tab) override;
    void mUpDown(int direction, int tab) override;

  private:
    const GroupModel& group_;
    PageTabs& tabs_;
};

} // namespace velmarin
