#include "FakeCanvas.h"
#include "support/PictureDifference.h"
#include "text/NilObjectException.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

using test::FakeCanvas;
using test::Point;

/// The source point of the lens that a press with Shift at 30, 20 shows.
Point lensPoint(FakeCanvas& canvas) {
    canvas.shift = true;
    canvas.view.Event_MouseDown(30, 20);
    canvas.shift = false;
    return {canvas.over<PictureDrawn>().sx, canvas.over<PictureDrawn>().sy};
}

TEST(Drag, MovesThePageWithThePointerAtAnyScale) {
    FakeCanvas canvas;
    canvas.show(1600, 3000, 2); // 0.5
    ASSERT_TRUE(canvas.view.Event_MouseDown(400, 300));
    EXPECT_EQ(canvas.cursors.back(), MouseCursor::Grip);
    canvas.view.Event_MouseDrag(350, 200);
    EXPECT_EQ(canvas.pagePoint(), (Point{0, 200})) << "painted at once";
    EXPECT_EQ(canvas.position(), (Point{0, 0})) << "not yet final";
    canvas.view.Event_MouseUp(350, 200);
    EXPECT_EQ(canvas.position(), (Point{0, 200}));
    EXPECT_EQ(canvas.cursors.back(), MouseCursor::Hand);
    canvas.view.Event_MouseDown(400, 300);
    canvas.view.Event_MouseDrag(400, 200);
    canvas.shift = true;
    canvas.view.Event_MouseUp(400, 200);
    EXPECT_EQ(canvas.pagePoint(), (Point{0, 200})) << "a release with Shift moves back";
    EXPECT_EQ(canvas.position(), (Point{0, 200}));
    EXPECT_EQ(canvas.cursors.back(), MouseCursor::Grip);
}

TEST(Drag, StopsAtTheEdges) {
    for (const auto& [page, last] : {std::pair(Point{1000, 2000}, Point{200, 1300}), {{300, 200}, {0, 0}}}) {
        FakeCanvas canvas;
        canvas.show(page[0], page[1], 1);
        canvas.view.Event_MouseDown(400, 400);
        canvas.view.Event_MouseDrag(-2000, -9000);
        EXPECT_EQ(canvas.pagePoint(), last);
        canvas.view.Event_MouseDrag(9000, 9000);
        EXPECT_EQ(canvas.pagePoint(), (Point{0, 0}));
        canvas.view.SmartScroll(INT32_MIN, INT32_MIN);
        EXPECT_EQ(canvas.position(), last);
        canvas.view.SetScrollPosition(-5, 99999); // unchecked
        std::array<int, 4> a{};
        canvas.view.GetScrollPosition(a);
        EXPECT_EQ(a, (std::array{last[0], last[1], -5, 99999}));
    }
}

TEST(Wheel, MovesByFortyPixelsOfTheScreenAndSidewaysAgainstItsSign) {
    FakeCanvas canvas;
    canvas.show(1600, 3000, 2); // 0.5
    for (const auto& [steps, y] : {std::pair(1, 80), {2, 240}, {-1, 160}, {1000, 3000 - 1400}}) {
        EXPECT_TRUE(canvas.view.Event_MouseWheel(1, 1, 0, steps));
        EXPECT_EQ(canvas.position(), (Point{0, y}));
    }
    canvas.view.UseMouseWheel = false;
    EXPECT_TRUE(canvas.view.Event_MouseWheel(1, 1, 0, -1));
    EXPECT_EQ(canvas.position(), (Point{0, 1600}));
    canvas.view.UseMouseWheel = true;
    canvas.show(3000, 3000, 1);
    canvas.view.Event_MouseDown(300, 200);
    canvas.view.Event_MouseUp(300, 200);
    canvas.view.Event_MouseWheel(1, 1, 1, 1);
    EXPECT_EQ(canvas.position(), (Point{260, 240})) << "where the last drag began is added";
    canvas.view.Event_MouseDown(0, 0);
    canvas.view.Event_MouseUp(0, 0);
    EXPECT_EQ(canvas.position(), (Point{0, 0})) << "a click returns to the last final position";
}

TEST(EmptyCanvas, RefusesAPressAndThrowsWhereRequired) {
    FakeCanvas canvas;
    for (const bool selection : {true, false}) {
        canvas.view.SelectionMode = selection;
        EXPECT_FALSE(canvas.view.Event_MouseDown(1, 1));
    }
    EXPECT_TRUE(canvas.view.Event_MouseWheel(1, 1, 0, 1)) << "a wheel is always taken";
    EXPECT_THROW(canvas.view.SmartScroll(0, 1), NilObjectException);
    EXPECT_THROW(canvas.view.mCompleteScroll_vertical(1), NilObjectException);
    for (const int direction : {0, 1, 7})
        canvas.view.mJumpScroll_vertical(direction);
    EXPECT_EQ(canvas.refreshes, 0);
}

TEST(Jump, MarksWhereTheLastScreenEndedAndMovesTheLens) {
    // In a view of 800 x 700 a page of 1000 x 2000 has its lowest position at 1300.
    const struct {
        const char* name;
        int width, height, mode, direction, from, to;
        int y; ///< of the marker; -1: none
        Color color;
        const char* text;
    } cases[] = {
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
        {"in an unknown direction", 1000, 2000, 1, 5, 0, 0, 0, kBlack, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        FakeCanvas canvas;
        canvas.show(c.width, c.height, c.mode);
        canvas.view.SetScrollPosition(77, c.from);
        const int before = canvas.refreshes;
        canvas.view.mJumpScroll_vertical(c.direction);
        EXPECT_EQ(canvas.position(), (Point{77, c.to}));
        EXPECT_EQ(canvas.page().sy, c.to);
        EXPECT_GT(canvas.refreshes, before);
        EXPECT_EQ(canvas.drawn, c.y < 0 ? 0 : 1);
        std::vector<DrawCommand> marker;
        if (c.y >= 0)
            marker = {LineDrawn{0, c.y, 800, c.y, 1, c.color},
                      StringDrawn{c.text, 5, c.y, 50, {0, "System", false, true}, c.color}};
        EXPECT_EQ(canvas.view.drawnOver(), marker);
        const int perPixel = c.mode == 2 ? 2 : 1, moved = c.y < 0 ? 0 : c.to; // setting a position moves no lens
        EXPECT_EQ(lensPoint(canvas), (Point{30 * perPixel, 20 * perPixel + moved}));
        canvas.view.SmartScroll(0, 0);
        EXPECT_TRUE(canvas.view.drawnOver().empty());
        EXPECT_GE(canvas.position()[1], 0);
    }
}

TEST(CompleteScroll, GoesToTheEndsAndMarksWhatWasSeen) {
    const struct {
        int height, direction, to, line; ///< -1: no line
    } cases[] = {{1000, 1, 300, 400}, {2000, 1, 1300, -1}, {1401, 1, 701, -1}, {1400, 1, 700, 0},
                 {700, 1, 0, 700},    {699, 1, 0, -1},     {1000, 0, 0, -1},   {1000, 2, 40, -1}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.height) + ", direction " + std::to_string(c.direction));
        FakeCanvas canvas;
        canvas.show(1000, c.height, 1);
        canvas.view.mJumpScroll_vertical(1);
        canvas.view.SetScrollPosition(0, 40);
        const int before = canvas.refreshes, drawn = canvas.drawn;
        canvas.view.mCompleteScroll_vertical(c.direction);
        EXPECT_EQ(canvas.position(), (Point{0, c.to}));
        EXPECT_EQ(canvas.refreshes > before, c.direction < 2);
        EXPECT_EQ(canvas.drawn - drawn, c.line < 0 ? 0 : 1);
        if (c.line >= 0) {
            EXPECT_EQ(canvas.view.drawnOver(), (std::vector<DrawCommand>{LineDrawn{0, c.line, 800, c.line, 1, kRed}}));
            canvas.view.mJumpScroll_vertical(5);
            EXPECT_EQ(canvas.over<LineDrawn>(1).color, kRed) << "an unknown direction keeps the color of before";
        }
        EXPECT_EQ(lensPoint(canvas)[1], 20 + (c.direction < 2 ? c.to : 300));
    }
}

TEST(Lens, ShowsThePageAtTwiceTheScaleFromThePointer) {
    const struct {
        const char* name;
        int mode, imageWidth, imageHeight, x, y, sx, sy, sw, sh;
    } cases[] = {{"whole page at 0.5", 0, 1000, 1400, 100, 50, 200, 100, 300, 100},
                 {"by width at 0.5", 2, 1600, 3000, 100, 50, 200, 100, 300, 100},
                 {"original size", 1, 3000, 3000, 100, 50, 100, 50, 150, 50},
                 {"a small page", 0, 300, 300, 290, 10, 290, 10, 150, 50}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        FakeCanvas canvas;
        canvas.show(c.imageWidth, c.imageHeight, c.mode);
        canvas.shift = true;
        const int before = canvas.refreshes;
        EXPECT_EQ(canvas.view.Event_MouseDown(c.x, c.y), c.mode == 0) << "with Shift a press starts no drag";
        EXPECT_EQ(canvas.refreshes, before + 1);
        EXPECT_EQ(canvas.drawn, 1);
        EXPECT_TRUE(canvas.cursors.empty());
        EXPECT_EQ(canvas.view.drawnOver(), (std::vector<DrawCommand>{PictureDrawn{canvas.view.Image, c.x, c.y, 300, 100,
                                                                                  c.sx, c.sy, c.sw, c.sh}}));
        canvas.view.SmartScroll(0, 0);
        EXPECT_EQ(canvas.position(), (Point{0, 0})) << "nor is it where the wheel counts from";
    }
}

TEST(Lens, InADragLooksWhereTheDragIs) {
    FakeCanvas canvas;
    canvas.show(1600, 3000, 1);
    canvas.view.Event_MouseDown(400, 300);
    canvas.view.Event_MouseDrag(340, 250);
    canvas.shift = true; // the drag goes on as a lens
    canvas.view.Event_MouseDrag(345, 240);
    EXPECT_EQ(canvas.over<PictureDrawn>().sx, 345 + 60);
    EXPECT_EQ(canvas.over<PictureDrawn>().sy, 240 + 50);
    EXPECT_EQ(canvas.page().sy, 0) << "over the page as it was before the drag";
    canvas.shift = false;
    canvas.view.Event_MouseDrag(300, 200);
    EXPECT_TRUE(canvas.view.drawnOver().empty());
    EXPECT_EQ(canvas.pagePoint(), (Point{100, 100}));
    canvas.view.Event_MouseUp(300, 200);
    canvas.view.Event_MouseWheel(0, 0, 0, 9);
    EXPECT_EQ(lensPoint(canvas), (Point{30 + 100, 20 + 100})) << "the wheel does not move the lens";
}

TEST(Selection, CopiesThePartAtThePagesOwnSizeHoweverItIsDragged) {
    for (const auto& c : {std::array{50, 100, 150, 160}, {150, 160, 50, 100}, {150, 100, 50, 160}}) {
        FakeCanvas canvas;
        const Picture page = test::noise(1600, 1000, 1, 1);
        canvas.view.Mode = 2; // 0.5
        canvas.view.SetPicture(Picture(page));
        canvas.view.SetScrollPosition(0, 400); // has no influence
        canvas.view.SelectionMode = true;
        EXPECT_TRUE(canvas.view.Event_MouseDown(c[0], c[1]));
        canvas.view.Event_MouseDrag(c[2], c[3]);
        EXPECT_EQ(canvas.painted.at(1), DrawCommand(RectDrawn{50, 100, 100, 60, 1, 1, kGreen}));
        const int before = canvas.refreshes;
        canvas.view.Event_MouseUp(c[2], c[3]);
        EXPECT_EQ(canvas.refreshes, before);
        const Picture expected = test::drawn(220, 120, 1, [&](int x, int y) {
            return x >= 20 && y >= 1 && page.pixel(80 + x, 199 + y) == kBlack ? 1u : 0u;
        });
        EXPECT_EQ(test::difference(canvas.view.SelectedImage, expected), 0);
        for (const int dy : {7, 0}) { // a click selects up to the old end; what has no height is nil
            canvas.view.Event_MouseDown(c[2] + 5, c[3] + dy);
            canvas.view.Event_MouseUp(c[2] + 5, c[3] + dy);
            EXPECT_EQ(canvas.view.SelectedImage.Width(), dy == 0 ? 0 : 10 + 20);
        }
    }
}

} // namespace
} // namespace velmarin
