#include "FakeCanvas.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

using test::FakeCanvas;

TEST(Lens, ShowsThePageAtTwiceTheScaleFromThePointer) {
    struct Case {
        const char* name;
        int mode, imageWidth, imageHeight, x, y, sx, sy, sw, sh;
    };
    for (const Case& c : {Case{"whole page at 0.5", 0, 1000, 1400, 100, 50, 200, 100, 300, 100},
                          Case{"by width at 0.5", 2, 1600, 3000, 100, 50, 200, 100, 300, 100},
                          Case{"original size", 1, 3000, 3000, 100, 50, 100, 50, 150, 50},
                          Case{"a small page", 0, 300, 300, 290, 10, 290, 10, 150, 50}}) {
        SCOPED_TRACE(c.name);
        FakeCanvas canvas(800, 700);
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
        EXPECT_EQ(canvas.scrollY(), 0) << "nor is it where the wheel counts from";
    }
}

TEST(Lens, StaysUntilTheNextRefreshOrSize) {
    FakeCanvas canvas;
    canvas.show(1000, 1400, 0);
    const auto press = [&] { canvas.view.Event_MouseDown(10, 10); };
    press();
    canvas.view.Event_MouseDrag(20, 20);
    canvas.paint();
    EXPECT_EQ(canvas.view.drawnOver().size(), 1u) << "a paint keeps it, a drag replaces it";
    canvas.view.Event_MouseUp(20, 20);
    EXPECT_TRUE(canvas.view.drawnOver().empty());
    press();
    canvas.view.resized();
    EXPECT_TRUE(canvas.view.drawnOver().empty());
    press();
    canvas.view.SetPicture(Picture::make(10, 10));
    EXPECT_TRUE(canvas.view.drawnOver().empty());
}

/// The source point of the lens that a press with Shift at 30, 20 shows.
std::array<int, 2> lensPoint(FakeCanvas& canvas) {
    canvas.shift = true;
    canvas.view.Event_MouseDown(30, 20);
    canvas.shift = false;
    return {canvas.over<PictureDrawn>().sx, canvas.over<PictureDrawn>().sy};
}

TEST(Lens, LooksWhereTheLastJumpLeftThePage) {
    struct Case {
        const char* name;
        int from;
        void (PageView::*jump)(int direction);
        int direction, to;
    };
    // A page of 1000 x 2000 pixels in a view of 800 x 700: the lowest position is 1300.
    for (const Case& c : {Case{"down", 0, &PageView::mJumpScroll_vertical, 1, 650},
                          Case{"down to the lowest", 900, &PageView::mJumpScroll_vertical, 1, 1300},
                          Case{"up", 800, &PageView::mJumpScroll_vertical, 0, 150},
                          Case{"up to the highest", 600, &PageView::mJumpScroll_vertical, 0, 0},
                          Case{"to the end", 100, &PageView::mCompleteScroll_vertical, 1, 1300},
                          Case{"to the top", 900, &PageView::mCompleteScroll_vertical, 0, 0}}) {
        SCOPED_TRACE(c.name);
        FakeCanvas canvas(800, 700);
        canvas.show(1000, 2000, 1);
        canvas.view.mJumpScroll_vertical(1);
        canvas.view.SetScrollPosition(0, c.from);
        EXPECT_EQ(lensPoint(canvas), (std::array{30, 20 + 650})) << "setting a position does not move the lens";
        (canvas.view.*c.jump)(c.direction);
        EXPECT_EQ(lensPoint(canvas), (std::array{30, 20 + c.to}));
    }
}

TEST(Lens, InADragLooksWhereTheDragIs) {
    FakeCanvas canvas(800, 700);
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
    EXPECT_EQ(canvas.page().sx, 100);
    canvas.view.Event_MouseUp(300, 200);
    canvas.view.Event_MouseWheel(0, 0, 0, 9);
    EXPECT_EQ(lensPoint(canvas), (std::array{30 + 100, 20 + 100})) << "the wheel does not move the lens";
}

TEST(Selection, CopiesThePartAtThePagesOwnSizeHoweverItIsDragged) {
    const int corners[][4] = {{50, 100, 150, 160}, {150, 160, 50, 100}, {150, 100, 50, 160}};
    for (const auto& c : corners) {
        FakeCanvas canvas(800, 700);
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
        const Picture& selected = canvas.view.SelectedImage;
        ASSERT_EQ(selected.Width(), 200 + 20);
        ASSERT_EQ(selected.Height(), 120);
        for (int y = 0; y < 120; ++y)
            for (int x = 0; x < 220; ++x)
                ASSERT_EQ(selected.pixel(x, y), x < 20 || y < 1 ? kWhite : page.pixel(80 + x, 199 + y))
                    << x << "," << y;
    }
}

TEST(Selection, OfAClickReachesToTheOldEnd) {
    FakeCanvas canvas(800, 700);
    canvas.show(400, 400, 1);
    canvas.view.SelectionMode = true;
    canvas.view.Event_MouseDown(30, 40);
    canvas.view.Event_MouseUp(30, 40);
    EXPECT_EQ(canvas.view.SelectedImage.Width(), 30 + 20);
    canvas.view.Event_MouseDown(0, 0);
    canvas.view.Event_MouseUp(0, 0);
    EXPECT_TRUE(canvas.view.SelectedImage.isNil()) << "0 pixels high";
    EXPECT_TRUE(canvas.messages.empty());
}

} // namespace
} // namespace velmarin
