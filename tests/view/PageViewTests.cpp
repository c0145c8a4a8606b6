#include "FakeCanvas.h"
#include "support/TempFolder.h"
#include "text/NilObjectException.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

using test::FakeCanvas;
using test::TempFolder;

struct PaintCase {
    const char* name;
    int mode, width, height, imageWidth, imageHeight;
    double ratio;
    int w, h, sx, sy; ///< of the destination, and of the source
};

TEST(Painting, FollowsTheMode) {
    const PaintCase cases[] = {
        {"whole page, too high", 0, 800, 700, 1000, 2000, 0.35, 350, 700, 0, 0},
        {"whole page, too wide", 0, 800, 700, 2000, 1000, 0.4, 800, 400, 0, 0},
        {"whole page, smaller in both directions", 0, 800, 700, 799, 699, 1.0, 799, 699, 0, 0},
        {"whole page, as wide as the control", 0, 800, 700, 800, 350, 1.0, 800, 350, 0, 0},
        {"whole page, as high as the control and narrow", 0, 800, 700, 100, 700, 1.0, 100, 700, 0, 0},
        {"original size", 1, 800, 700, 1000, 2000, 1.0, 1000, 2000, 30, 40},
        {"by width", 2, 800, 700, 1000, 2000, 0.8, 800, 1600, 0, 40},
        {"by width, enlarged", 2, 800, 700, 400, 300, 2.0, 800, 600, 0, 40},
        {"mode 3 is mode 2", 3, 800, 700, 1000, 2000, 0.8, 800, 1600, 0, 40},
        {"mode 4 is mode 2", 4, 800, 700, 1000, 2000, 0.8, 800, 1600, 0, 40},
        {"by height", 5, 800, 700, 1000, 2000, 0.35, 350, 700, 30, 0},
        {"sizes are cut to whole pixels", 2, 800, 700, 900, 1001, 800 / 900.0, 800, 889, 0, 40},
    };
    for (const PaintCase& c : cases) {
        SCOPED_TRACE(c.name);
        FakeCanvas canvas(c.width, c.height);
        canvas.show(c.imageWidth, c.imageHeight, c.mode);
        canvas.view.SetScrollPosition(30, 40);
        canvas.view.Refresh();
        ASSERT_EQ(canvas.painted.size(), 1u);
        const PictureDrawn& p = canvas.page();
        EXPECT_EQ(canvas.view.Ratio, c.ratio);
        EXPECT_EQ(p.x, 0);
        EXPECT_EQ(p.y, 0);
        EXPECT_EQ(p.w, c.w);
        EXPECT_EQ(p.h, c.h);
        EXPECT_EQ(p.sx, c.sx);
        EXPECT_EQ(p.sy, c.sy);
        EXPECT_EQ(p.sw, c.imageWidth);
        EXPECT_EQ(p.sh, c.imageHeight);
    }
}

TEST(Ratio, LagsOnePaintBehindSizeAndMode) {
    FakeCanvas canvas(800, 700);
    canvas.show(1000, 2000, 2);
    EXPECT_EQ(canvas.view.Ratio, 0.8);
    canvas.width = 500;
    EXPECT_EQ(canvas.view.Ratio, 0.8);
    canvas.paint();
    EXPECT_EQ(canvas.view.Ratio, 0.5);
    canvas.view.Mode = 1;
    canvas.view.SmartScroll(0, -10000);
    EXPECT_EQ(canvas.scrollY(), 600) << "by the limit of the mode before";
    canvas.view.SmartScroll(0, -10000);
    EXPECT_EQ(canvas.scrollY(), 1300);
    canvas.view.Mode = 2;
    canvas.view.SmartScroll(0, 0);
    EXPECT_EQ(canvas.scrollY(), 1300);
    canvas.view.SmartScroll(0, 0);
    EXPECT_EQ(canvas.scrollY(), 600);
}

TEST(Loading, PutsThePageAtItsTopWithWhiteEdges) {
    const TempFolder folder;
    FakeCanvas canvas;
    const Picture page = test::noise(900, 1500, 8, 1);
    canvas.files["a.png"] = page;
    canvas.show(2000, 3000, 1);
    canvas.view.SetScrollPosition(50, 60);
    ASSERT_TRUE(canvas.view.SetPicture(FolderItem(folder.write("a.png", "x"))));
    EXPECT_EQ(canvas.page().sx, 0);
    EXPECT_EQ(canvas.page().sy, 0);
    EXPECT_EQ(canvas.view.Image.Width(), 900);
    EXPECT_EQ(canvas.view.Image.pixel(0, 77), RGB(255, 255, 255));
    EXPECT_EQ(canvas.view.Image.pixel(77, 0), RGB(255, 255, 255));
    EXPECT_EQ(canvas.view.Image.pixel(1, 1), page.pixel(1, 1));
}

TEST(Loading, OfAPicturePaintsOnceAtTheOldPosition) {
    FakeCanvas canvas;
    canvas.show(2000, 3000, 1);
    canvas.view.SetScrollPosition(50, 60);
    ASSERT_TRUE(canvas.view.SetPicture(Picture::make(1000, 1000)));
    EXPECT_EQ(canvas.page().sx, 50);
    EXPECT_EQ(canvas.page().sy, 60);
    canvas.paint();
    EXPECT_EQ(canvas.page().sx, 0);
    EXPECT_EQ(canvas.page().sy, 0);
    EXPECT_FALSE(canvas.view.SetPicture(Picture()));
    EXPECT_EQ(canvas.view.Image.Width(), 1000) << "nil changes nothing";
}

TEST(Loading, OfAMissingFileChangesNothing) {
    const TempFolder folder;
    FakeCanvas canvas;
    canvas.show(2000, 3000, 1);
    canvas.view.SetScrollPosition(50, 60);
    const int before = canvas.refreshes;
    EXPECT_FALSE(canvas.view.SetPicture(FolderItem(folder.path() / "none.tif")));
    EXPECT_FALSE(canvas.view.SetPicture(FolderItem()));
    EXPECT_EQ(canvas.view.Image.Width(), 2000);
    EXPECT_EQ(canvas.scrollY(), 60);
    EXPECT_EQ(canvas.refreshes, before);
    EXPECT_TRUE(canvas.messages.empty());
}

TEST(Loading, OfAnUndecodableFileClearsThePageWithoutAWord) {
    const TempFolder folder;
    for (const char* name : {"a.tif", "a.JPG", "a.png", "a.bmp", "a"}) {
        FakeCanvas canvas;
        canvas.show(2000, 3000, 1);
        canvas.shift = true;
        canvas.view.Event_MouseDown(5, 5); // the lens
        const int before = canvas.refreshes;
        EXPECT_FALSE(canvas.view.SetPicture(FolderItem(folder.write(name, "x")))) << name;
        EXPECT_TRUE(canvas.view.Image.isNil());
        EXPECT_TRUE(canvas.view.drawnOver().empty()) << "nor is there anything of it to enlarge";
        EXPECT_EQ(canvas.refreshes, before);
        EXPECT_TRUE(canvas.messages.empty());
        canvas.paint();
        EXPECT_TRUE(canvas.painted.empty());
    }
}

TEST(JpegBook, EnlargesJpegThreefoldAtLoad) {
    const TempFolder folder;
    FakeCanvas canvas;
    canvas.view.pJpegBook = true;
    for (const char* name : {"a.jpg", "a.JPEG", "a.png"})
        canvas.files[name] = test::noise(30, 20, 32, 1);
    ASSERT_TRUE(canvas.view.SetPicture(FolderItem(folder.write("a.JPEG", "x"))));
    EXPECT_EQ(canvas.view.Image.Width(), 90);
    EXPECT_EQ(canvas.view.Image.Height(), 60);
    EXPECT_EQ(canvas.view.Image.pixel(31, 31), canvas.files["a.jpg"].pixel(10, 10)) << "the middle of nine";
    ASSERT_TRUE(canvas.view.SetPicture(FolderItem(folder.write("a.png", "x"))));
    EXPECT_EQ(canvas.view.Image.Width(), 30);
}

TEST(JpegBook, TellsOfAPictureThatHadToBeThere) {
    const TempFolder folder;
    FakeCanvas canvas;
    canvas.view.pJpegBook = true;
    canvas.files["huge.jpg"] = Picture::make(8000, 14000, 1);
    for (const char* name : {"broken.jpg", "huge.jpg"}) {
        canvas.messages.clear();
        EXPECT_FALSE(canvas.view.SetPicture(FolderItem(folder.write(name, "x"))));
        EXPECT_EQ(canvas.messages, std::vector<std::string>{"SmartCanvas: SetPicture: NilObjectException"}) << name;
    }
}

TEST(MouseCursor, TellsWhatAPressWouldDo) {
    struct Case {
        int mode;
        bool shift;
        MouseCursor cursor;
    };
    for (const Case& c :
         {Case{0, false, MouseCursor::ArrowNorthwestSoutheast}, Case{0, true, MouseCursor::Lens},
          Case{1, false, MouseCursor::Hand}, Case{1, true, MouseCursor::Lens}, Case{2, false, MouseCursor::Hand}}) {
        FakeCanvas canvas;
        canvas.view.Mode = c.mode;
        canvas.shift = c.shift;
        canvas.view.Event_MouseMove(3, 4);
        EXPECT_EQ(canvas.cursors, std::vector<MouseCursor>{c.cursor}) << c.mode << c.shift;
    }
    for (const int mode : {0, 1, 2}) {
        FakeCanvas canvas;
        canvas.view.Mode = mode;
        canvas.view.Event_MouseEnter();
        canvas.view.Event_MouseExit();
        const std::vector<MouseCursor> inMode1{MouseCursor::Hand, MouseCursor::Default};
        EXPECT_EQ(canvas.cursors, mode == 1 ? inMode1 : std::vector<MouseCursor>{}) << mode;
    }
}

TEST(Press, OnAnEmptyCanvasIsRefused) {
    for (const int mode : {0, 1, 2, 5, 9})
        for (const bool selection : {false, true}) {
            FakeCanvas canvas;
            canvas.view.Mode = mode;
            canvas.view.SelectionMode = selection;
            EXPECT_FALSE(canvas.view.Event_MouseDown(1, 1));
            EXPECT_TRUE(canvas.view.Event_MouseWheel(1, 1, 0, 1)) << "a wheel is always taken";
            EXPECT_EQ(canvas.refreshes, 0);
        }
}

TEST(Press, WithShiftInAScrollingModeShowsTheLensAndClaimsNoDrag) {
    FakeCanvas canvas;
    canvas.show(1000, 2000, 1);
    canvas.shift = true;
    EXPECT_FALSE(canvas.view.Event_MouseDown(300, 200));
    EXPECT_EQ(canvas.over<PictureDrawn>().x, 300);
    EXPECT_TRUE(canvas.cursors.empty());
    canvas.shift = false;
    canvas.view.SmartScroll(0, 0);
    EXPECT_EQ(canvas.scrollY(), 0) << "the press was no start of a drag";
}

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

TEST(Lens, LivesUntilTheNextRefreshOrSize) {
    FakeCanvas canvas;
    canvas.show(1000, 1400, 0);
    EXPECT_TRUE(canvas.view.Event_MouseDown(10, 10));
    canvas.view.Event_MouseDrag(20, 20);
    ASSERT_EQ(canvas.view.drawnOver().size(), 1u) << "the one of the step before is gone";
    canvas.paint();
    EXPECT_EQ(canvas.view.drawnOver().size(), 1u) << "a paint that is no Refresh keeps it";
    canvas.view.Event_MouseUp(20, 20);
    EXPECT_TRUE(canvas.view.drawnOver().empty());
    canvas.view.Event_MouseDown(10, 10);
    canvas.view.resized();
    EXPECT_TRUE(canvas.view.drawnOver().empty());
    canvas.view.Event_MouseDown(10, 10);
    canvas.view.SetPicture(Picture::make(10, 10));
    EXPECT_TRUE(canvas.view.drawnOver().empty());
}

TEST(Lens, InADragLooksWhereTheDragIsAndAfterTheWheelWhereItWas) {
    FakeCanvas canvas(800, 700);
    canvas.show(1600, 3000, 2); // 0.5
    canvas.view.Event_MouseDown(100, 300);
    canvas.view.Event_MouseDrag(100, 250);
    canvas.shift = true;
    canvas.view.Event_MouseDrag(100, 250);
    EXPECT_EQ(canvas.over<PictureDrawn>().sy, 500 + 100);
    canvas.shift = false;
    canvas.view.Event_MouseUp(100, 250);
    canvas.view.SetScrollPosition(0, 900);
    canvas.shift = true;
    canvas.view.Event_MouseDown(100, 250);
    EXPECT_EQ(canvas.over<PictureDrawn>().sy, 500 + 100) << "not 900";
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

TEST(ExtraText, TakesItsSettings) {
    FakeCanvas canvas;
    canvas.view.mExtraTextSettings("", 0, true, true, 0, RGB(1, 2, 3), RGB(4, 5, 6), true);
    canvas.view.mDrawExtraText();
    EXPECT_TRUE(canvas.view.drawnOver().empty()) << "no text, no box";
    canvas.view.pExtraText_Text = "text";
    canvas.view.mDrawExtraText();
    EXPECT_EQ(canvas.view.drawnOver()[0], DrawCommand(RectFilled{0, 0, 200, 30, RGB(4, 5, 6)}));
    EXPECT_EQ(canvas.over<StringDrawn>().style, (TextStyle{14, "System", true, true}));
    EXPECT_EQ(canvas.over<StringDrawn>().color, RGB(1, 2, 3));
    canvas.view.mExtraText_SetWidth(120);
    canvas.view.mExtraText_SetTextColor(RGB(9, 9, 9));
    canvas.view.mDrawExtraText();
    EXPECT_EQ(canvas.over<RectDrawn>(1).w, 120);
    EXPECT_EQ(canvas.over<RectDrawn>(1).color, RGB(9, 9, 9));
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
