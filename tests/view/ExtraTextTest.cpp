#include "FakeCanvas.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

using test::FakeCanvas;

TEST(ExtraText, IsAFramedBoxAtTheTopLeft) {
    FakeCanvas canvas;
    canvas.view.mDrawExtraText();
    EXPECT_TRUE(canvas.view.drawnOver().empty()) << "no text, no box";
    canvas.view.pExtraText_Text = "No Picture";
    for (int i = 1; i <= 2; ++i) { // a box over itself is not drawn twice
        canvas.view.mDrawExtraText();
        EXPECT_EQ(
            canvas.view.drawnOver(),
            (std::vector<DrawCommand>{RectFilled{0, 0, 400, 30, kWhite}, RectDrawn{0, 0, 400, 30, 1, 1, kBlack},
                                      StringDrawn{"No Picture", 15, 19, 380, {14, "System", false, false}, kBlack}}));
        EXPECT_EQ(canvas.measuredWidth, 380);
        EXPECT_EQ(canvas.drawn, i);
    }
    canvas.view.Refresh();
    EXPECT_TRUE(canvas.view.drawnOver().empty());
}

TEST(ExtraText, UsesItsSettings) {
    FakeCanvas canvas;
    canvas.view.pExtraText_Text = "text";
    canvas.view.mExtraTextSettings("", 0, true, true, 0, RGB(1, 2, 3), RGB(4, 5, 6), true);
    canvas.view.mDrawExtraText();
    EXPECT_EQ(canvas.over<RectDrawn>(1).w, 200);
    canvas.view.mExtraText_SetWidth(120);
    canvas.view.mExtraText_SetTextColor(RGB(9, 9, 9));
    canvas.view.Refresh();
    canvas.view.mDrawExtraText();
    EXPECT_EQ(
        canvas.view.drawnOver(),
        (std::vector<DrawCommand>{RectFilled{0, 0, 120, 30, RGB(4, 5, 6)}, RectDrawn{0, 0, 120, 30, 1, 1, RGB(9, 9, 9)},
                                  StringDrawn{"text", 15, 19, 100, {14, "System", true, true}, RGB(9, 9, 9)}}));
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
