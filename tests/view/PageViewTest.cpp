#include "FakeCanvas.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <utility>

namespace velmarin {
namespace {

using test::FakeCanvas;
using test::TempFolder;

TEST(Painting, FollowsTheMode) {
    const struct {
        const char* name;
        int mode, imageWidth, imageHeight;
        double ratio;
        int w, h, sx, sy; ///< of the destination, and of the source
    } cases[] = {
        {"whole page, too high", 0, 1000, 2000, 0.35, 350, 700, 0, 0},
        {"whole page, too wide", 0, 2000, 1000, 0.4, 800, 400, 0, 0},
        {"whole page, smaller in both directions", 0, 799, 699, 1.0, 799, 699, 0, 0},
        {"whole page, as wide as the control", 0, 800, 350, 1.0, 800, 350, 0, 0},
        {"whole page, as high as the control and narrow", 0, 100, 700, 1.0, 100, 700, 0, 0},
        {"original size", 1, 1000, 2000, 1.0, 1000, 2000, 30, 40},
        {"by width", 2, 1000, 2000, 0.8, 800, 1600, 0, 40},
        {"by width, enlarged", 2, 400, 300, 2.0, 800, 600, 0, 40},
        {"mode 3 is mode 2", 3, 1000, 2000, 0.8, 800, 1600, 0, 40},
        {"mode 4 is mode 2", 4, 1000, 2000, 0.8, 800, 1600, 0, 40},
        {"by height", 5, 1000, 2000, 0.35, 350, 700, 30, 0},
        {"sizes are truncated to whole pixels", 2, 900, 1001, 800 / 900.0, 800, 889, 0, 40},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        FakeCanvas canvas(800, 700);
        canvas.show(c.imageWidth, c.imageHeight, c.mode);
        canvas.view.SetScrollPosition(30, 40);
        canvas.view.Refresh();
        ASSERT_EQ(canvas.painted.size(), 1u);
        EXPECT_EQ(canvas.view.Ratio, c.ratio);
        EXPECT_EQ(canvas.painted[0], DrawCommand(PictureDrawn{canvas.view.Image, 0, 0, c.w, c.h, c.sx, c.sy,
                                                              c.imageWidth, c.imageHeight}));
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

TEST(Loading, ShowsTheTopOfThePageWithWhiteEdges) {
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
        EXPECT_TRUE(canvas.view.drawnOver().empty()) << "the lens as well";
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

TEST(JpegBook, ReportsAPictureThatDoesNotLoad) {
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

TEST(MouseCursor, ShowsWhatAPressWouldDo) {
    using Cursors = std::vector<MouseCursor>;
    const struct {
        int mode;
        MouseCursor pressed;
        Cursors entered; ///< at enter and exit
    } cases[] = {{0, MouseCursor::ArrowNorthwestSoutheast, {}},
                 {1, MouseCursor::Hand, {MouseCursor::Hand, MouseCursor::Default}},
                 {2, MouseCursor::Hand, {}}};
    for (const auto& c : cases) {
        FakeCanvas canvas;
        canvas.view.Mode = c.mode;
        canvas.view.Event_MouseMove(3, 4);
        canvas.shift = true;
        canvas.view.Event_MouseMove(3, 4);
        EXPECT_EQ(std::exchange(canvas.cursors, {}), (Cursors{c.pressed, MouseCursor::Lens})) << c.mode;
        canvas.view.Event_MouseEnter();
        canvas.view.Event_MouseExit();
        EXPECT_EQ(canvas.cursors, c.entered) << c.mode;
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
    EXPECT_EQ(canvas.scrollY(), 0) << "the press did not start a drag";
}

} // namespace
} // namespace velmarin
