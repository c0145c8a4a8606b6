#pragma once

#include <functional>

namespace velmarin {

/// Which dictionaries a query goes to.
enum class QueryRoute {
    List,       ///< Every dictionary, into the hit list.
    FrontTab,   ///< The dictionary of the tab in front.
    AllTabs,    ///< Every dictionary, each into its tab.
    Unexpected, ///< The Shift key changed between the two times that it was read.
};

/// Decides by the check box "Search separately" and the Shift key, which is read once for the front tab and again for
/// all tabs.
QueryRoute routeQuery(bool listMode, bool separately, const std::function<bool()>& shiftHeld);

} // namespace velmarin
