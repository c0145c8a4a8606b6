#include "search/QueryRoute.h"

namespace velmarin {

QueryRoute routeQuery(bool listMode, bool separately, const std::function<bool()>& shiftHeld) {
    if (listMode)
        return QueryRoute::List;
    if (separately != shiftHeld())
        return QueryRoute::FrontTab;
    if (separately == shiftHeld())
        return QueryRoute::AllTabs;
    return QueryRoute::Unexpected;
}

} // namespace velmarin
