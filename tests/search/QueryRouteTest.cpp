#include "search/QueryRoute.h"

#include <gtest/gtest.h>

#include <vector>

namespace velmarin {
namespace {

struct Case {
    const char* reason;
    bool listMode, separately;
    std::vector<bool> shiftAtEachLook;
    QueryRoute expected;
};

TEST(QueryRoute, FollowsTheCheckBoxAndTheShiftKey) {
    const std::vector<Case> cases{
        {"plain search goes to all tabs", false, false, {false, false}, QueryRoute::AllTabs},
        {"Shift turns it to the front tab", false, false, {true}, QueryRoute::FrontTab},
        {"separately goes to the front tab", false, true, {false}, QueryRoute::FrontTab},
        {"Shift turns separately to all tabs", false, true, {true, true}, QueryRoute::AllTabs},
        {"Shift pressed between the two looks", false, false, {false, true}, QueryRoute::Unexpected},
        {"Shift let go between the two looks", false, true, {true, false}, QueryRoute::Unexpected},
        {"list mode asks for neither", true, true, {}, QueryRoute::List},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.reason);
        std::size_t looks = 0;
        EXPECT_EQ(routeQuery(c.listMode, c.separately, [&] { return c.shiftAtEachLook.at(looks++); }), c.expected);
        EXPECT_EQ(looks, c.shiftAtEachLook.size());
    }
}

} // namespace
} // namespace velmarin
