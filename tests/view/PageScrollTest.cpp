#include "FakeCanvas.h"
#include "text/NilObjectException.h"

#include <gtest/gtest.h>

#include <utility>

namespace velmarin {
namespace {

using test::FakeCanvas;

constexpr Color red = RGB(255, 0, 0), green = RGB(0, 255, 0);

TEST(Drag, MovesThePageWithThePointerAtAnyScale) {
    FakeCanvas canvas(800, 700);
    canvas.show(1600, 3000, 2); // 0.5
    ASSERT_TRUE(canvas.view.Event_MouseDown(400, 300));
    EXPECT_EQ(canvas.cursors.back(), MouseCursor::Grip);
    canvas.view.Event_MouseDrag(350, 200);
    EXPECT_EQ(canvas.page().sy, 200) << "painted at once, from where the button went down";
    EXPECT_EQ(canvas.scrollY(), 0) << "and not yet final";
    canvas.view.Event_MouseUp(350, 200);
    EXPECT_EQ(canvas.scrollY(), 200);
    EXPECT_EQ(canvas.cursors.back(), MouseCursor::Hand);
    canvas.view.Event_MouseDown(400, 300);
    canvas.shift = true;
    canvas.view.Event_MouseUp(400, 200);
    EXPECT_EQ(canvas.scrollY(), 200) << "a release with Shift moves back";
    EXPECT_EQ(canvas.page().sy, 200);
    EXPECT_EQ(canvas.cursors.back(), MouseCursor::Grip) << "no hand";
}

TEST(Drag, StopsAtTheEdges) {
    const struct {
        int width, height, right, bottom; ///< of the page, and its last position
    } cases[] = {{1000, 2000, 200, 1300}, {300, 200, 0, 0}};
    for (const auto& c : cases) {
        FakeCanvas canvas(800, 700);
        canvas.show(c.width, c.height, 1);
        canvas.view.Event_MouseDown(400, 400);
        canvas.view.Event_MouseDrag(-2000, -9000);
        EXPECT_EQ(std::pair(canvas.page().sx, canvas.page().sy), std::pair(c.right, c.bottom));
        canvas.view.Event_MouseDrag(9000, 9000);
        EXPECT_EQ(std::pair(canvas.page().sx, canvas.page().sy), std::pair(0, 0));
        canvas.view.SmartScroll(-5000, -5000);
        EXPECT_EQ(std::pair(canvas.scrollX(), canvas.scrollY()), std::pair(c.right, c.bottom));
    }
}

TEST(Wheel, MovesDownThePageByFortyPixelsOfTheScreen) {
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

TEST(Wheel, AfterADragAddsWhereTheDragBeganAndMovesSidewaysAgainstItsSign) {
    FakeCanvas canvas(800, 700);
    canvas.show(3000, 3000, 1);
    canvas.view.Event_MouseDown(300, 200);
    canvas.view.Event_MouseUp(300, 200);
    canvas.view.Event_MouseWheel(1, 1, 1, 1);
    EXPECT_EQ(canvas.scrollX(), 260);
    EXPECT_EQ(canvas.scrollY(), 240);
}

TEST(ArrowKeys, ScrollByTheAmountAndKeepTheOldFinalPosition) {
    FakeCanvas canvas(800, 700);
    canvas.show(1000, 2000, 1);
    canvas.view.SmartScroll(0, -14);
    EXPECT_EQ(canvas.scrollY(), 14);
    canvas.view.SmartScroll(0, 20);
    EXPECT_EQ(canvas.scrollY(), 0);
    canvas.view.SmartScroll(0, -500);
    canvas.view.Event_MouseDown(0, 0);
    canvas.view.Event_MouseUp(0, 0);
    EXPECT_EQ(canvas.scrollY(), 0) << "a click returns to the old final position";
    canvas.view.SmartScroll(INT32_MIN, INT32_MIN);
    EXPECT_EQ(canvas.scrollY(), 1300);
}

TEST(Scrolling, WithoutAPageThrowsWhereRequired) {
    FakeCanvas canvas;
    EXPECT_THROW(canvas.view.SmartScroll(0, 1), NilObjectException);
    EXPECT_THROW(canvas.view.mCompleteScroll_vertical(1), NilObjectException);
    canvas.view.mJumpScroll_vertical(0);
    canvas.view.mJumpScroll_vertical(1);
    canvas.view.mJumpScroll_vertical(7);
    EXPECT_EQ(canvas.refreshes, 0);
}

struct JumpCase {
    const char* name;
    int direction, from, to;
    int y; ///< of the marker; -1: none
    Color color;
    const char* text;
};

TEST(Jump, MarksWhereTheLastScreenEnded) {
    // 800 x 700 over 1000 x 2000: at original size a screen is 700 pixels and the lowest position 1300.
    const JumpCase cases[] = {
        {"down in full", 1, 0, 650, 50, red, "650\n2000"},
        {"down to just the lowest is a full jump", 1, 650, 1300, 50, red, "1300\n2000"},
        {"down to the end", 1, 700, 1300, 700 - 650, green, "Lowest"},
        {"down near the end", 1, 1290, 1300, 700 - 60, green, "Lowest"},
        {"down at the end", 1, 1300, 1300, -1, red, ""},
        {"up in full", 0, 1300, 650, 650, red, "650\n2000"},
        {"up to exactly the top is a full jump", 0, 650, 0, 650, red, "0\n2000"},
        {"up to the top", 0, 600, 0, 700 - 50, green, "Highest"},
        {"up near the top", 0, 1, 0, 700 - 649, green, "Highest"},
        {"up at the top", 0, 0, 0, -1, red, ""},
    };
    for (const JumpCase& c : cases) {
        SCOPED_TRACE(c.name);
        FakeCanvas canvas(800, 700);
        canvas.show(1000, 2000, 1);
        canvas.view.SetScrollPosition(77, c.from);
        const int before = canvas.refreshes;
        canvas.view.mJumpScroll_vertical(c.direction);
        EXPECT_EQ(canvas.scrollX(), 77);
        EXPECT_EQ(canvas.scrollY(), c.to);
        EXPECT_EQ(canvas.page().sy, c.to);
        EXPECT_GT(canvas.refreshes, before);
        if (c.y < 0) {
            EXPECT_TRUE(canvas.view.drawnOver().empty());
            continue;
        }
        ASSERT_EQ(canvas.view.drawnOver().size(), 2u);
        EXPECT_EQ(canvas.view.drawnOver()[0], DrawCommand(LineDrawn{0, c.y, 800, c.y, 1, c.color}));
        EXPECT_EQ(canvas.view.drawnOver()[1],
                  DrawCommand(StringDrawn{c.text, 5, c.y, 50, {0, "System", false, true}, c.color}));
        canvas.view.Refresh();
        EXPECT_TRUE(canvas.view.drawnOver().empty());
    }
}

TEST(Jump, AtAScaleCountsItsOverlapInPixelsOfThePage) {
    FakeCanvas canvas(800, 700);
    canvas.show(1600, 4000, 2); // 0.5: a screen is 1400 pixels
    canvas.view.mJumpScroll_vertical(1);
    EXPECT_EQ(canvas.scrollY(), 1350);
    EXPECT_EQ(canvas.over<LineDrawn>(1).y1, 25);
    canvas.view.mJumpScroll_vertical(1);
    EXPECT_EQ(canvas.scrollY(), 2600);
    EXPECT_EQ(canvas.over<LineDrawn>(1).y1, 700 - (1250 + 50) / 2);
    canvas.view.mJumpScroll_vertical(0);
    EXPECT_EQ(canvas.scrollY(), 1250);
    EXPECT_EQ(canvas.over<LineDrawn>(1).y1, 675);
}

TEST(Jump, DownOnAShortPageGoesBelowZero) {
    FakeCanvas canvas(800, 700);
    canvas.show(900, 400, 1);
    canvas.view.mJumpScroll_vertical(1);
    EXPECT_EQ(canvas.scrollY(), -300);
    EXPECT_EQ(canvas.page().sy, -300);
    EXPECT_EQ(canvas.over<StringDrawn>().text, "Lowest");
    EXPECT_EQ(canvas.over<LineDrawn>(1).y1, 700 - (-300 + 50));
    canvas.view.mJumpScroll_vertical(1);
    EXPECT_TRUE(canvas.view.drawnOver().empty()) << "it is at its lowest now";
    canvas.view.SmartScroll(0, 0);
    EXPECT_EQ(canvas.scrollY(), 0);
}

TEST(CompleteScroll, GoesToTheEndsAndMarksWhatWasSeen) {
    FakeCanvas canvas(800, 700);
    canvas.show(1000, 1000, 1);
    canvas.view.mCompleteScroll_vertical(1);
    EXPECT_EQ(canvas.scrollY(), 300);
    EXPECT_EQ(canvas.over<LineDrawn>().y1, 700 - 300);
    EXPECT_EQ(canvas.over<LineDrawn>().color, red);
    canvas.view.mJumpScroll_vertical(5); // an unknown direction draws a bare marker in the color of before
    EXPECT_EQ(canvas.over<LineDrawn>(1).color, red);
    EXPECT_EQ(canvas.over<LineDrawn>(1).y1, 0);
    EXPECT_EQ(canvas.over<StringDrawn>().text, "");
    canvas.view.mCompleteScroll_vertical(0);
    EXPECT_EQ(canvas.scrollY(), 0);
    EXPECT_TRUE(canvas.view.drawnOver().empty());
    const int before = canvas.refreshes;
    canvas.view.mCompleteScroll_vertical(2);
    EXPECT_EQ(canvas.refreshes, before);
    for (const auto& [height, lowest] : {std::pair(2000, 1300), {400, 0}}) {
        canvas.show(1000, height, 1);
        canvas.view.mCompleteScroll_vertical(1);
        EXPECT_EQ(canvas.scrollY(), lowest);
        EXPECT_TRUE(canvas.view.drawnOver().empty()) << "more than a screen below, or no scroll: no line";
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
    canvas.show(10, 10, 1);
    canvas.view.GetScrollPosition(a);
    EXPECT_EQ(a, (std::array{0, 0, 0, 0}));
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
        canvas.paint();
        EXPECT_EQ(canvas.page().w * canvas.page().h, 0);
    }
}

} // namespace
} // namespace velmarin
