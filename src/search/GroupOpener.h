#pragma once

#include "files/FolderItem.h"
#include "store/Group.h"

#include <string>
#include <vector>

namespace velmarin {

class HitModel;
class Host;
class PageTabs;
class SearchModel;
struct GroupModel;

/// Opens a group in a main window: reads it, makes tabs or a list of its dictionaries, and leaves it again.
class GroupOpener {
  public:
    GroupOpener(GroupModel& group, PageTabs& tabs, HitModel& hits, SearchModel& search, Host& host)
        : group_(group), tabs_(tabs), hits_(hits), search_(search), host_(host) {}

    /// Leaves the present group, and reads the dictionaries of `folder` with its name and its check box, without
    /// showing them. A Yield precedes each call of `onProgress`. False if that has stopped the reading. Raises
    /// NilObjectException for a folder that cannot be read. In both cases there is no group then.
    bool read(const FolderItem& folder, const OnGroupProgress& onProgress = {});
    /// Shows what was read. Raises NilObjectException, with a line for each, if something could not be read or a
    /// dictionary has no pages, after all others are shown.
    void mInitialize();
    /// Drops the group and all that is shown of it.
    void leave();

  private:
    void showInList();
    void showInTabs();

    GroupModel& group_;
    PageTabs& tabs_;
    HitModel& hits_;
    SearchModel& search_;
    Host& host_;
    /// What could not be read of the group.
    std::vector<std::string> failures_;
};

} // namespace velmarin
