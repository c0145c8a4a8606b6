#include "FakeCanvas.h"
#include "text/NilObjectException.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

using test::FakeCanvas;
using Point = std::array<int, 2>;

TEST(Drag, MovesThePageWithThePointerAtAnyScale) {
    FakeCanvas canvas(800, 700);
    canvas.show(1600, 3000, 2); // 0.5
    ASSERT_TRUE(canvas.view.Event_MouseDown(400, 300));
    EXPECT_EQ(canvas.cursors.back(), MouseCursor::Grip);
    canvas.view.Event_MouseDrag(350, 200);
    EXPECT_EQ(canvas.page().sy, 200) << "painted at once";
    EXPECT_EQ(canvas.scrollY(), 0) << "not yet final";
    canvas.view.Event_MouseUp(350, 200);
    EXPECT_EQ(canvas.scrollY(), 200);
    EXPECT_EQ(canvas.cursors.back(), MouseCursor::Hand);
    canvas.view.Event_MouseDown(400, 300);
    canvas.view.Event_MouseDrag(400, 200);
    canvas.shift = true;
    canvas.view.Event_MouseUp(400, 200);
    EXPECT_EQ(canvas.page().sy, 200) << "a release with Shift moves back";
    EXPECT_EQ(canvas.scrollY(), 200);
    EXPECT_EQ(canvas.cursors.back(), MouseCursor::Grip);
}

TEST(Drag, StopsAtTheEdges) {
    for (const auto& [page, last] : {std::pair(Point{1000, 2000}, Point{200, 1300}), {{300, 200}, {0, 0}}}) {
        FakeCanvas canvas(800, 700);
        canvas.show(page[0], page[1], 1);
        canvas.view.Event_MouseDown(400, 400);
        canvas.view.Event_MouseDrag(-2000, -9000);
        EXPECT_EQ((Point{canvas.page().sx, canvas.page().sy}), last);
        canvas.view.Event_MouseDrag(9000, 9000);
        EXPECT_EQ((Point{canvas.page().sx, canvas.page().sy}), (Point{0, 0}));
        canvas.view.SmartScroll(INT32_MIN, INT32_MIN);
        EXPECT_EQ((Point{canvas.scrollX(), canvas.scrollY()}), last);
    }
}

TEST(Wheel, MovesByFortyPixelsOfTheScreen) {
    FakeCanvas canvas(800, 700);
    canvas.show(1600, 3000, 2); // 0.5
    for (const auto& [steps, y] : {std::pair(1, 80), {2, 240}, {-1, 160}, {1000, 3000 - 1400}}) {
        EXPECT_TRUE(canvas.view.Event_MouseWheel(1, 1, 0, steps));
        EXPECT_EQ(canvas.scrollY(), y);
    }
    canvas.view.UseMouseWheel = false;
    EXPECT_TRUE(canvas.view.Event_MouseWheel(1, 1, 0, -1));
    EXPECT_EQ(canvas.scrollY(), 1600);
}

TEST(Wheel, AddsWhereTheLastDragBeganAndMovesSidewaysAgainstItsSign) {
    FakeCanvas canvas(800, 700);
    canvas.show(3000, 3000, 1);
    canvas.view.Event_MouseDown(300, 200);
    canvas.view.Event_MouseUp(300, 200);
    canvas.view.Event_MouseWheel(1, 1, 1, 1);
    EXPECT_EQ((Point{canvas.scrollX(), canvas.scrollY()}), (Point{260, 240}));
    canvas.view.Event_MouseDown(0, 0);
    canvas.view.Event_MouseUp(0, 0);
    EXPECT_EQ(canvas.scrollY(), 0) << "a click returns to the last final position";
}

TEST(Scrolling, WithoutAPageThrowsWhereRequired) {
    FakeCanvas canvas;
    EXPECT_THROW(canvas.view.SmartScroll(0, 1), NilObjectException);
    EXPECT_THROW(canvas.view.mCompleteScroll_vertical(1), NilObjectException);
    for (const int direction : {0, 1, 7})
        canvas.view.mJumpScroll_vertical(direction);
    EXPECT_EQ(canvas.refreshes, 0);
}

TEST(Jump, MarksWhereTheLastScreenEnded) {
    struct Case {
        const char* name;
        int width, height, mode, direction, from, to;
        int y; ///< of the marker; -1: none
        Color color;
        const char* text;
    };
    // In a view of 800 x 700 a page of 1000 x 2000 has its lowest position at 1300.
    const Case cases[] = {
        {"down", 1000, 2000, 1, 1, 0, 650, 50, kRed, "650\n2000"},
        {"down to just the lowest", 1000, 2000, 1, 1, 650, 1300, 50, kRed, "1300\n2000"},
        {"down past the lowest", 1000, 2000, 1, 1, 700, 1300, 700 - 650, kGreen, "Lowest"},
        {"down near the lowest", 1000, 2000, 1, 1, 1290, 1300, 700 - 60, kGreen, "Lowest"},
        {"down at the lowest", 1000, 2000, 1, 1, 1300, 1300, -1, kRed, ""},
        {"up", 1000, 2000, 1, 0, 1300, 650, 650, kRed, "650\n2000"},
        {"up to just the top", 1000, 2000, 1, 0, 650, 0, 650, kRed, "0\n2000"},
        {"up past the top", 1000, 2000, 1, 0, 600, 0, 700 - 50, kGreen, "Highest"},
        {"up near the top", 1000, 2000, 1, 0, 1, 0, 700 - 649, kGreen, "Highest"},
        {"up at the top", 1000, 2000, 1, 0, 0, 0, -1, kRed, ""},
        {"down at scale 0.5", 1600, 4000, 2, 1, 0, 1350, 25, kRed, "1350\n4000"},
        {"down past the lowest at 0.5", 1600, 4000, 2, 1, 1350, 2600, 700 - 650, kGreen, "Lowest"},
        {"up at 0.5", 1600, 4000, 2, 0, 2600, 1250, 675, kRed, "1250\n4000"},
        {"down on a short page", 900, 400, 1, 1, 0, -300, 700 + 250, kGreen, "Lowest"},
        {"down on a short page again", 900, 400, 1, 1, -300, -300, -1, kRed, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        FakeCanvas canvas(800, 700);
        canvas.show(c.width, c.height, c.mode);
        canvas.view.SetScrollPosition(77, c.from);
        const int before = canvas.refreshes;
        canvas.view.mJumpScroll_vertical(c.direction);
        EXPECT_EQ((Point{canvas.scrollX(), canvas.scrollY()}), (Point{77, c.to}));
        EXPECT_EQ(canvas.page().sy, c.to);
        EXPECT_GT(canvas.refreshes, before);
        EXPECT_EQ(canvas.drawn, c.y < 0 ? 0 : 1);
        std::vector<DrawCommand> marker;
        if (c.y >= 0)
            marker = {LineDrawn{0, c.y, 800, c.y, 1, c.color},
                      StringDrawn{c.text, 5, c.y, 50, {0, "System", false, true}, c.color}};
        EXPECT_EQ(canvas.view.drawnOver(), marker);
        canvas.view.SmartScroll(0, 0);
        EXPECT_TRUE(canvas.view.drawnOver().empty());
        EXPECT_GE(canvas.scrollY(), 0);
    }
}

TEST(CompleteScroll, GoesToTheEndsAndMarksWhatWasSeen) {
    FakeCanvas canvas(800, 700);
    canvas.show(1000, 1000, 1);
    canvas.view.mCompleteScroll_vertical(1);
    EXPECT_EQ(canvas.scrollY(), 300);
    EXPECT_EQ(canvas.view.drawnOver(), (std::vector<DrawCommand>{LineDrawn{0, 400, 800, 400, 1, kRed}}));
    canvas.view.mJumpScroll_vertical(5); // an unknown direction draws a marker at 0 in the color of before
    EXPECT_EQ(DrawCommand(canvas.over<LineDrawn>(1)), DrawCommand(LineDrawn{0, 0, 800, 0, 1, kRed}));
    EXPECT_EQ(canvas.over<StringDrawn>().text, "");
    canvas.view.mCompleteScroll_vertical(0);
    EXPECT_EQ(canvas.scrollY(), 0);
    const int before = canvas.refreshes;
    canvas.view.mCompleteScroll_vertical(2);
    EXPECT_EQ(canvas.refreshes, before);
    struct Case {
        int height, lowest, lines;
    };
    for (const Case& c :
         {Case{2000, 1300, 0}, Case{1401, 701, 0}, Case{1400, 700, 1}, Case{700, 0, 1}, Case{699, 0, 0}}) {
        canvas.show(1000, c.height, 1);
        canvas.view.mCompleteScroll_vertical(1);
        EXPECT_EQ(canvas.scrollY(), c.lowest);
        EXPECT_EQ(canvas.view.drawnOver().size(), static_cast<std::size_t>(c.lines)) << c.height;
    }
}

TEST(ScrollPosition, IsReportedWithItsLimitsAndSetUnchecked) {
    FakeCanvas canvas(800, 700);
    canvas.show(1000, 2000, 1);
    const int before = canvas.refreshes;
    canvas.view.SetScrollPosition(-5, 99999);
    std::array<int, 4> a{};
    canvas.view.GetScrollPosition(a);
    EXPECT_EQ(a, (std::array{200, 1300, -5, 99999}));
    EXPECT_EQ(canvas.refreshes, before);
}

TEST(Scrolling, InAControlWithoutSizeStaysWithinNumbers) {
    FakeCanvas canvas(0, 0);
    for (const int mode : {0, 2, 5}) {
        canvas.show(1000, 2000, mode);
        canvas.view.Event_MouseDown(5, 5);
        canvas.view.Event_MouseDrag(-3, 8);
        canvas.view.Event_MouseUp(1, 1);
        canvas.view.Event_MouseWheel(0, 0, 3, 3);
        canvas.view.mJumpScroll_vertical(1);
        canvas.view.mJumpScroll_vertical(0);
        canvas.view.mCompleteScroll_vertical(1);
        EXPECT_EQ(canvas.page().w * canvas.page().h, 0);
    }
}

} // namespace
} // namespace velmarin
