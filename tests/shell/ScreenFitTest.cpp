#include "shell/ScreenFit.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

const QRect kLaptop(0, 0, 1366, 768);
const QRect kRightOfIt(1366, -200, 1920, 1080);
const QRect kBelowAPanel(0, 30, 1366, 738);

struct PlaceCase {
    const char* reason;
    WindowPlace saved;
    QList<QRect> screens;
    bool stays;
};

class SavedPlace : public testing::TestWithParam<PlaceCase> {};

TEST_P(SavedPlace, StaysWhereItsTitleBarCanBeDraggedAndIsOtherwiseShownWhole) {
    const PlaceCase& c = GetParam();
    const WindowPlace place = withinReach(c.saved, c.screens);
    EXPECT_EQ(place == c.saved, c.stays);
    if (c.stays)
        return;
    EXPECT_TRUE(std::any_of(c.screens.begin(), c.screens.end(), [&](const QRect& s) { return s.contains(place); }));
    EXPECT_LE(place.width(), c.saved.width());
    EXPECT_EQ(withinReach(place, c.screens), place);
}

INSTANTIATE_TEST_SUITE_P(
    Places, SavedPlace,
    testing::Values(PlaceCase{"OnTheScreen", {100, 100, 838, 600}, {kLaptop}, true},
                    PlaceCase{"LargerThanTheScreen", {100, 100, 3000, 2000}, {kLaptop}, true},
                    PlaceCase{"ACornerOfTheTitleBarIsLeft", {-750, 740, 838, 600}, {kLaptop}, true},
                    PlaceCase{"RightOfTheScreen", {2600, 100, 1000, 900}, {kLaptop}, false},
                    PlaceCase{"OnTheSecondScreen", {2600, 100, 600, 500}, {kLaptop, kRightOfIt}, true},
                    PlaceCase{"BesideBothScreens", {1000, -900, 600, 500}, {kLaptop, kRightOfIt}, false},
                    PlaceCase{"OnlyTheLowerEdgeIsSeen", {100, -580, 838, 600}, {kLaptop}, false},
                    PlaceCase{"TitleBarUnderAPanel", {100, 0, 838, 600}, {kBelowAPanel}, false},
                    PlaceCase{"TooFewPixelsToGrab", {1360, 100, 838, 600}, {kLaptop}, false},
                    PlaceCase{"LargerAndFarAway", {1 << 20, -(1 << 20), 32000, 32000}, {kLaptop, kRightOfIt}, false},
                    PlaceCase{"NoScreenIsKnown", {9000, 9000, 838, 600}, {}, true}),
    [](const auto& info) { return info.param.reason; });

TEST(FirstPlace, FitsTheScreenAndLeavesRoomForTheWindowBesideIt) {
    constexpr int kBesideIt = 352;
    for (const QRect& screen : {QRect(0, 0, 1366, 768), QRect(0, 30, 1280, 994), QRect(1366, -200, 1920, 1080)}) {
        const WindowPlace place = firstPlace({838, 831}, kBesideIt, screen);
        EXPECT_TRUE(screen.contains(place.adjusted(0, 0, kBesideIt, 0))) << screen.width();
        EXPECT_EQ(place.width(), 838);
    }
    EXPECT_EQ(firstPlace({838, 831}, kBesideIt, {100, 0, 1024, 600}).x(), 100);
    EXPECT_TRUE(QRect(0, 0, 640, 480).contains(firstPlace({838, 831}, kBesideIt, {0, 0, 640, 480})));
}

TEST(SavedPlaceOfTwoScreens, TheNearestTakesIt) {
    const WindowPlace place = withinReach({4000, 100, 600, 500}, {kLaptop, kRightOfIt});
    EXPECT_TRUE(kRightOfIt.contains(place));
    EXPECT_EQ(place.y(), 100);
    EXPECT_EQ(place.size(), QSize(600, 500));
}

} // namespace
} // namespace velmarin
