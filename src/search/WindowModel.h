#pragma once

#include "search/GroupModel.h"
#include "search/GroupOpener.h"
#include "search/HitModel.h"
#include "search/PageTabs.h"
#include "search/SearchModel.h"

namespace velmarin {

/// The state of one main window, in its parts. Each part but the group is to be given its display before use.
struct WindowModel {
    WindowModel(Host& host, BusyState& busy, SearchModel::DefaultHits defaultHits)
        : search(group, tabs, hits, std::move(defaultHits), host, busy), opener(group, tabs, hits, search, host) {}
    WindowModel(const WindowModel&) = delete;
    WindowModel& operator=(const WindowModel&) = delete;

    GroupModel group;
    PageTabs tabs{group};
    HitModel hits{group, tabs};
    SearchModel search;
    GroupOpener opener;
};

} // namespace velmarin
