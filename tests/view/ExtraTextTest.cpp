#include "FakeCanvas.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

using test::FakeCanvas;

TEST(ExtraText, IsAFramedBoxAtTheTopLeft) {
    FakeCanvas canvas;
    canvas.view.pExtraText_Text = "No Picture";
    canvas.view.mDrawExtraText();
    ASSERT_EQ(canvas.view.drawnOver().size(), 3u);
    EXPECT_EQ(canvas.view.drawnOver()[0], DrawCommand(RectFilled{0, 0, 400, 30, RGB(255, 255, 255)}));
    EXPECT_EQ(canvas.view.drawnOver()[1], DrawCommand(RectDrawn{0, 0, 400, 30, 1, 1, RGB(0, 0, 0)}));
    EXPECT_EQ(canvas.view.drawnOver()[2],
              DrawCommand(StringDrawn{"No Picture", 15, 19, 380, {14, "System", false, false}, RGB(0, 0, 0)}));
    EXPECT_EQ(canvas.measuredWidth, 380);
    EXPECT_EQ(canvas.drawn, 1);
    canvas.view.mDrawExtraText();
    EXPECT_EQ(canvas.view.drawnOver().size(), 3u) << "the same box again";
    canvas.view.Refresh();
    EXPECT_TRUE(canvas.view.drawnOver().empty());
}

TEST(ExtraText, UsesItsSettings) {
    FakeCanvas canvas;
    canvas.view.mExtraTextSettings("", 0, true, true, 0, RGB(1, 2, 3), RGB(4, 5, 6), true);
    canvas.view.mDrawExtraText();
    EXPECT_TRUE(canvas.view.drawnOver().empty()) << "no text, no box";
    canvas.view.pExtraText_Text = "text";
    canvas.view.mDrawExtraText();
    EXPECT_EQ(canvas.over<RectDrawn>(1).w, 200);
    EXPECT_EQ(canvas.over<StringDrawn>().color, RGB(1, 2, 3));
    canvas.view.mExtraText_SetWidth(120);
    canvas.view.mExtraText_SetTextColor(RGB(9, 9, 9));
    canvas.view.mDrawExtraText();
    EXPECT_EQ(DrawCommand(canvas.over<RectFilled>(2)), DrawCommand(RectFilled{0, 0, 120, 30, RGB(4, 5, 6)}));
    EXPECT_EQ(canvas.over<RectDrawn>(1).color, RGB(9, 9, 9));
    EXPECT_EQ(canvas.over<StringDrawn>().style, (TextStyle{14, "System", true, true}));
}

TEST(ExtraText, WhenAppliedIsPartOfEveryPaintAndFollowsTheMouse) {
    FakeCanvas canvas;
    canvas.show(100, 100, 1);
    canvas.view.pExtraText_Text = "note";
    canvas.view.pExtraText_Apply = true;
    canvas.view.Event_MouseMove(70, 80);
    canvas.paint();
    canvas.paint();
    ASSERT_EQ(canvas.painted.size(), 4u);
    EXPECT_EQ(std::get<RectFilled>(canvas.painted[1]).x, 70);
    EXPECT_TRUE(canvas.view.drawnOver().empty());
    canvas.shift = true;
    canvas.view.Event_MouseMove(1, 1);
    EXPECT_EQ(canvas.view.pExtraText_x, 70);
    canvas.shift = false;
    canvas.view.Event_MouseDown(5, 6);
    canvas.view.Event_MouseUp(15, 16);
    EXPECT_EQ(canvas.cursors.back(), MouseCursor::IBeam);
    EXPECT_EQ(canvas.over<RectFilled>(2).y, 16);
    canvas.view.Event_MouseDown(5, 6);
    canvas.shiftReads = {false, true}; // pressed between the two reads
    canvas.view.Event_MouseUp(25, 26);
    EXPECT_EQ(canvas.view.pExtraText_x, 15);
}

TEST(ExtraText, MovesByTheArrowKeysWithinTheControl) {
    struct Case {
        const char* name;
        std::string key;
        int x, y, toX, toY;
    };
    for (const Case& c :
         {Case{"up", "\x1e", 9, 9, 9, 4}, Case{"up at the top", "\x1e", 9, 3, 9, 0}, Case{"down", "\x1f", 9, 9, 9, 14},
          Case{"down at the bottom", "\x1f", 9, 698, 9, 700}, Case{"left", "\x1c", 9, 9, 2, 9},
          Case{"left at the edge", "\x1c", 3, 9, 0, 9}, Case{"right", "\x1d", 9, 9, 16, 9},
          Case{"right at the edge", "\x1d", 799, 9, 800, 9}, Case{"another key", "x", 9, 9, 9, 9}}) {
        SCOPED_TRACE(c.name);
        FakeCanvas canvas(800, 700);
        canvas.view.pExtraText_Text = "note";
        canvas.view.pExtraText_Step = {7, 5};
        canvas.view.pExtraText_x = c.x;
        canvas.view.pExtraText_y = c.y;
        canvas.view.mExtraTextMove(c.key);
        EXPECT_EQ(canvas.view.pExtraText_x, c.x) << "not applied";
        EXPECT_EQ(canvas.refreshes, 0);
        canvas.view.pExtraText_Apply = true;
        canvas.view.mExtraTextMove(c.key);
        EXPECT_EQ(canvas.view.pExtraText_x, c.toX);
        EXPECT_EQ(canvas.view.pExtraText_y, c.toY);
        EXPECT_EQ(canvas.refreshes, 1);
        EXPECT_EQ(canvas.over<RectFilled>(2).x, c.toX);
    }
}

} // namespace
} // namespace velmarin
