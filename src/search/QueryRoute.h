#pragma once

#include <functional>

namespace velmarin {

/// Which dictionaries a query goes to.
enum class QueryRoute {
    List,       ///< Every dictionary, into the hit list.
    FrontTab,   ///< The dictionary of the tab in front.
    AllTabs,    ///< Every dictionary, each into its tab.
    Unexpected, ///< The Shift key changed between the two looks at it.
};

/// Decides by the check box "Search separately" and the Shift key, which is read from the keyboard at each look: once
/// for the front tab, and afresh for all tabs.
QueryRoute routeQuery(bool listMode, bool separately, const std::function<bool()>& shiftHeld);

} // namespace velmarin
