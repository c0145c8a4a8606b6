#include "shell/ScreenFit.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

const QRect kLaptop(0, 0, 1366, 768);
const QRect kRightOfIt(1366, -200, 1920, 1080);
const QRect kBelowAPanel(0, 30, 1366, 738);

TEST(SavedPlace, StaysWhereItsTitleBarCanBeDraggedAndIsOtherwiseShownWhole) {
    const struct {
        const char* reason;
        WindowPlace saved;
        QList<QRect> screens;
        bool stays;
    } cases[] = {
        {"larger than the screen", {100, 100, 3000, 2000}, {kLaptop}, true},
        {"a corner of the title bar is left", {-750, 740, 838, 600}, {kLaptop}, true},
        {"right of the screen", {2600, 100, 1000, 900}, {kLaptop}, false},
        {"on the second screen", {2600, 100, 600, 500}, {kLaptop, kRightOfIt}, true},
        {"beside both screens", {1000, -900, 600, 500}, {kLaptop, kRightOfIt}, false},
        {"only the lower edge is visible", {100, -580, 838, 600}, {kLaptop}, false},
        {"title bar under a panel", {100, 0, 838, 600}, {kBelowAPanel}, false},
        {"too few pixels to grab", {1360, 100, 838, 600}, {kLaptop}, false},
        {"larger and far away", {1 << 20, -(1 << 20), 32000, 32000}, {kLaptop, kRightOfIt}, false},
        {"no screen is known", {9000, 9000, 838, 600}, {}, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        const WindowPlace place = withinReach(c.saved, c.screens);
        EXPECT_EQ(place == c.saved, c.stays);
        const auto contains = [&](const QRect& screen) { return screen.contains(place); };
        EXPECT_TRUE(c.stays || std::any_of(c.screens.begin(), c.screens.end(), contains));
        EXPECT_LE(place.width(), c.saved.width());
        EXPECT_EQ(withinReach(place, c.screens), place);
    }
    const WindowPlace nearest = withinReach({4000, 100, 600, 500}, {kLaptop, kRightOfIt});
    EXPECT_TRUE(kRightOfIt.contains(nearest)) << "the nearest of two screens takes it";
    EXPECT_EQ(QRect(nearest.x(), 100, 600, 500), nearest);
}

TEST(FirstPlace, FitsTheScreenAndLeavesRoomForTheWindowBesideIt) {
    for (const QRect& screen : {kLaptop, QRect(0, 30, 1280, 994), kRightOfIt}) {
        const WindowPlace place = firstPlace({838, 831}, 352, screen);
        EXPECT_TRUE(screen.contains(place.adjusted(0, 0, 352, 0))) << screen.width();
        EXPECT_EQ(place.width(), 838);
    }
    EXPECT_EQ(firstPlace({838, 831}, 352, {100, 0, 1024, 600}).x(), 100);
    EXPECT_TRUE(QRect(0, 0, 640, 480).contains(firstPlace({838, 831}, 352, {0, 0, 640, 480})));
}

} // namespace
} // namespace velmarin
