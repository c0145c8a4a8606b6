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
    ASSERT_FALSE(canvas.view.SetPicture(FolderItem(folder.write("torn.png", "x"))));
    ASSERT_TRUE(canvas.view.SetPicture(FolderItem(folder.write("a.png", "x"))));
    EXPECT_EQ(canvas.view.loadProblem(), "") << "no longer that of the page before";
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
    EXPECT_EQ(canvas.view.loadProblem(), "there is no such file");
    EXPECT_FALSE(canvas.view.SetPicture(FolderItem()));
    EXPECT_EQ(canvas.view.Image.Width(), 2000);
    EXPECT_EQ(canvas.scrollY(), 60);
    EXPECT_EQ(canvas.refreshes, before);
    EXPECT_TRUE(canvas.messages.empty());
}

TEST(Loading, OfAnUndecodableFileClearsThePageAndKeepsTheReason) {
    const TempFolder folder;
    for (const char* name : {"a.tif", "a.JPG", "a.png", "a.bmp", "a"}) {
        FakeCanvas canvas;
        canvas.show(2000, 3000, 1);
        canvas.shift = true;
        canvas.view.Event_MouseDown(5, 5); // the lens
        const int before = canvas.refreshes;
        EXPECT_FALSE(canvas.view.SetPicture(FolderItem(folder.write(name, "x")))) << name;
        EXPECT_EQ(canvas.view.loadProblem(), "torn");
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

} // namespace
} // namespace velmarin
