#include "FakeCanvas.h"

#include <gtest/gtest.h>

#include <utility>

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
        canvas.view.Event_MouseDown(c.x, c.y);
        EXPECT_EQ(canvas.refreshes, before + 1);
        EXPECT_EQ(canvas.drawn, 1);
        ASSERT_EQ(canvas.view.drawnOver().size(), 1u);
        const auto& lens = canvas.over<PictureDrawn>();
        EXPECT_EQ(lens.picture.id(), canvas.view.Image.id());
        EXPECT_EQ((std::array{lens.x, lens.y, lens.w, lens.h}), (std::array{c.x, c.y, 300, 100}));
        EXPECT_EQ((std::array{lens.sx, lens.sy, lens.sw, lens.sh}), (std::array{c.sx, c.sy, c.sw, c.sh}));
    }
}

TEST(Lens, StaysUntilTheNextRefreshOrSize) {
    FakeCanvas canvas;
    canvas.show(1000, 1400, 0);
    EXPECT_TRUE(canvas.view.Event_MouseDown(10, 10));
    canvas.view.Event_MouseDrag(20, 20);
    ASSERT_EQ(canvas.view.drawnOver().size(), 1u) << "the one of the step before is gone";
    canvas.paint();
    EXPECT_EQ(canvas.view.drawnOver().size(), 1u) << "a paint without a Refresh keeps it";
    canvas.view.Event_MouseUp(20, 20);
    EXPECT_TRUE(canvas.view.drawnOver().empty());
    canvas.view.Event_MouseDown(10, 10);
    canvas.view.resized();
    EXPECT_TRUE(canvas.view.drawnOver().empty());
    canvas.view.Event_MouseDown(10, 10);
    canvas.view.SetPicture(Picture::make(10, 10));
    EXPECT_TRUE(canvas.view.drawnOver().empty());
}

/// The source point of the lens that a press with Shift at x, y shows.
std::pair<int, int> lensAt(FakeCanvas& canvas, int x, int y) {
    canvas.shift = true;
    canvas.view.Event_MouseDown(x, y);
    canvas.shift = false;
    const auto& lens = canvas.over<PictureDrawn>();
    return {lens.sx, lens.sy};
}

TEST(Lens, LooksWhereTheLastJumpLeftThePage) {
    struct Case {
        const char* name;
        int from;
        void (PageView::*jump)(int direction);
        int direction, to;
    };
    // A page of 1000 x 2000 pixels in a view of 800 x 700: the lowest position is 1300.
    for (const Case& c : {Case{"a screen down", 0, &PageView::mJumpScroll_vertical, 1, 650},
                          Case{"up to the highest", 600, &PageView::mJumpScroll_vertical, 0, 0},
                          Case{"to the end", 100, &PageView::mCompleteScroll_vertical, 1, 1300},
                          Case{"to the top", 900, &PageView::mCompleteScroll_vertical, 0, 0}}) {
        SCOPED_TRACE(c.name);
        FakeCanvas canvas(800, 700);
        canvas.show(1000, 2000, 1);
        canvas.view.mJumpScroll_vertical(1); // so that the place of the lens is not 0
        canvas.view.SetScrollPosition(0, c.from);
        EXPECT_EQ(lensAt(canvas, 30, 20), std::pair(30, 20 + 650)) << "setting a position does not move the lens";
        (canvas.view.*c.jump)(c.direction);
        EXPECT_EQ(lensAt(canvas, 30, 20), std::pair(30, 20 + c.to));
    }
}

TEST(Lens, InADragLooksWhereTheDragIsAndAfterItWhereThePageWasLeft) {
    FakeCanvas canvas(800, 700);
    canvas.show(1600, 3000, 1);
    canvas.view.Event_MouseDown(400, 300);
    canvas.view.Event_MouseDrag(390, 280);
    canvas.view.Event_MouseDrag(340, 250);
    canvas.shift = true; // the drag goes on as a lens
    canvas.view.Event_MouseDrag(345, 240);
    EXPECT_EQ(canvas.over<PictureDrawn>().sx, 345 + 60);
    EXPECT_EQ(canvas.over<PictureDrawn>().sy, 240 + 50);
    EXPECT_EQ(canvas.page().sy, 0) << "on the page as it was before the drag";
    canvas.shift = false;
    canvas.view.Event_MouseDrag(300, 200);
    EXPECT_TRUE(canvas.view.drawnOver().empty()) << "and then as a drag again, from where it began";
    EXPECT_EQ(canvas.page().sx, 100);
    canvas.view.Event_MouseUp(300, 200);
    EXPECT_EQ(lensAt(canvas, 10, 10), std::pair(10 + 100, 10 + 100));
    canvas.view.Event_MouseWheel(0, 0, 0, 9);
    EXPECT_EQ(lensAt(canvas, 10, 10), std::pair(10 + 100, 10 + 100)) << "the wheel moves the page alone";
}

TEST(Selection, CopiesThePartAtThePagesOwnSizeHoweverItIsDragged) {
    const int corners[][4] = {{50, 100, 150, 160}, {150, 160, 50, 100}, {150, 100, 50, 160}};
    for (const auto& c : corners) {
        FakeCanvas canvas(800, 700);
        const Picture page = test::noise(1600, 1000, 1, 1);
        canvas.view.Mode = 2; // 0.5
        canvas.view.SetPicture(Picture(page));
        canvas.view.SetScrollPosition(0, 400); // does not enter
        canvas.view.SelectionMode = true;
        EXPECT_TRUE(canvas.view.Event_MouseDown(c[0], c[1]));
        canvas.view.Event_MouseDrag(c[2], c[3]);
        EXPECT_EQ(std::get<RectDrawn>(canvas.painted.at(1)).x, 50);
        EXPECT_EQ(std::get<RectDrawn>(canvas.painted.at(1)).w, 100);
        EXPECT_EQ(std::get<RectDrawn>(canvas.painted.at(1)).h, 60);
        const int before = canvas.refreshes;
        canvas.view.Event_MouseUp(c[2], c[3]);
        EXPECT_EQ(canvas.refreshes, before);
        const Picture& selected = canvas.view.SelectedImage;
        ASSERT_EQ(selected.Width(), 200 + 20);
        ASSERT_EQ(selected.Height(), 120);
        for (int y = 0; y < 120; ++y)
            for (int x = 0; x < 220; ++x)
                ASSERT_EQ(selected.pixel(x, y),
                          x < 20 || y < 1 ? RGB(255, 255, 255) : page.pixel(100 + x - 20, 200 + y - 1))
                    << x << "," << y;
    }
}

TEST(Selection, OfAClickReachesToTheOldEnd) {
    FakeCanvas canvas(800, 700);
    canvas.show(400, 400, 1);
    canvas.view.SelectionMode = true;
    canvas.view.Event_MouseDown(30, 40);
    canvas.view.Event_MouseUp(30, 40);
    EXPECT_EQ(canvas.view.SelectedImage.Width(), 30 + 20) << "from 0, 0, where nothing ended before";
    canvas.view.Event_MouseDown(0, 0);
    canvas.view.Event_MouseUp(0, 0);
    EXPECT_TRUE(canvas.view.SelectedImage.isNil()) << "nothing high";
    EXPECT_TRUE(canvas.messages.empty());
}

} // namespace
} // namespace velmarin
