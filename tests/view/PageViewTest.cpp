#include "FakeCanvas.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <utility>

namespace velmarin {
namespace {

using test::FakeCanvas;

TEST(Painting, FollowsTheMode) {
    struct Case {
        const char* name;
        int mode, imageWidth, imageHeight;
        double ratio;
        int w, h, sx, sy; ///< of the destination, and of the source
    };
    for (const Case& c : {Case{"whole page, too high", 0, 1000, 2000, 0.35, 350, 700, 0, 0},
                          Case{"whole page, too wide", 0, 2000, 1000, 0.4, 800, 400, 0, 0},
                          Case{"whole page, smaller", 0, 799, 699, 1.0, 799, 699, 0, 0},
                          Case{"whole page, as wide as the control", 0, 800, 350, 1.0, 800, 350, 0, 0},
                          Case{"whole page, as high as the control", 0, 100, 700, 1.0, 100, 700, 0, 0},
                          Case{"original size", 1, 1000, 2000, 1.0, 1000, 2000, 30, 40},
                          Case{"by width", 2, 1000, 2000, 0.8, 800, 1600, 0, 40},
                          Case{"by width, enlarged", 3, 400, 300, 2.0, 800, 600, 0, 40},
                          Case{"by width, truncated", 4, 900, 1001, 800 / 900.0, 800, 889, 0, 40},
                          Case{"by height", 5, 1000, 2000, 0.35, 350, 700, 30, 0}}) {
        SCOPED_TRACE(c.name);
        FakeCanvas canvas(800, 700);
        canvas.show(c.imageWidth, c.imageHeight, c.mode);
        canvas.view.SetScrollPosition(30, 40);
        canvas.view.Refresh();
        EXPECT_EQ(canvas.view.Ratio, c.ratio);
        EXPECT_EQ(canvas.painted, (std::vector<DrawCommand>{PictureDrawn{canvas.view.Image, 0, 0, c.w, c.h, c.sx, c.sy,
                                                                         c.imageWidth, c.imageHeight}}));
    }
}

TEST(Ratio, LagsOnePaintBehindSizeAndMode) {
    FakeCanvas canvas(800, 700);
    canvas.show(1000, 2000, 2);
    canvas.width = 500;
    EXPECT_EQ(canvas.view.Ratio, 0.8);
    canvas.paint();
    EXPECT_EQ(canvas.view.Ratio, 0.5);
    canvas.view.Mode = 1;
    for (const int y : {600, 1300}) { // first by the limit of the mode before
        canvas.view.SmartScroll(0, -10000);
        EXPECT_EQ(canvas.scrollY(), y);
    }
}

TEST(Loading, ShowsTheTopOfThePageWithWhiteEdges) {
    const test::TempFolder folder;
    FakeCanvas canvas;
    const Picture page = test::noise(900, 1500, 8, 1);
    canvas.files["a.png"] = page;
    canvas.show(2000, 3000, 1);
    canvas.view.SetScrollPosition(50, 60);
    ASSERT_FALSE(canvas.view.SetPicture(FolderItem(folder.write("torn.png", "x"))));
    ASSERT_TRUE(canvas.view.SetPicture(FolderItem(folder.write("a.png", "x"))));
    EXPECT_EQ(canvas.view.loadProblem(), "") << "no longer that of the page before";
    EXPECT_EQ(canvas.page().sx + canvas.page().sy, 0);
    EXPECT_TRUE(test::samePixels(canvas.view.Image, Picture(page).withWhiteEdges()));
}

TEST(Loading, OfAPicturePaintsOnceAtTheOldPosition) {
    FakeCanvas canvas;
    canvas.show(2000, 3000, 1);
    canvas.view.SetScrollPosition(50, 60);
    ASSERT_TRUE(canvas.view.SetPicture(Picture::make(1000, 1000)));
    EXPECT_EQ(std::pair(canvas.page().sx, canvas.page().sy), std::pair(50, 60));
    canvas.paint();
    EXPECT_EQ(std::pair(canvas.page().sx, canvas.page().sy), std::pair(0, 0));
    EXPECT_FALSE(canvas.view.SetPicture(Picture()));
    EXPECT_EQ(canvas.view.Image.Width(), 1000) << "nil changes nothing";
}

TEST(Loading, KeepsThePageOfAMissingFileAndClearsThatOfAnUndecodableOne) {
    const test::TempFolder folder;
    for (const auto& [file, problem] : {std::pair(FolderItem(), "there is no such file"),
                                        {FolderItem(folder.path() / "none.tif"), "there is no such file"},
                                        {FolderItem(folder.write("a.tif", "x")), "torn"},
                                        {FolderItem(folder.write("a.JPG", "x")), "torn"}}) {
        SCOPED_TRACE(problem);
        const bool missing = file.isNil() || !file.Exists();
        FakeCanvas canvas;
        canvas.show(2000, 3000, 1);
        canvas.view.SetScrollPosition(50, 60);
        canvas.shift = true;
        canvas.view.Event_MouseDown(5, 5); // the lens
        const int before = canvas.refreshes;
        EXPECT_FALSE(canvas.view.SetPicture(file));
        EXPECT_EQ(canvas.view.loadProblem(), problem);
        EXPECT_EQ(canvas.view.Image.Width(), missing ? 2000 : 0);
        EXPECT_EQ(canvas.view.drawnOver().size(), missing ? 1u : 0u) << "the lens goes with the page";
        EXPECT_EQ(canvas.refreshes, before);
        EXPECT_TRUE(canvas.messages.empty());
        canvas.paint();
        EXPECT_EQ(canvas.painted.size(), missing ? 1u : 0u);
    }
}

TEST(JpegBook, EnlargesJpegThreefoldAtLoad) {
    const test::TempFolder folder;
    FakeCanvas canvas;
    canvas.view.pJpegBook = true;
    canvas.files["a.JPEG"] = canvas.files["a.png"] = test::noise(30, 20, 32, 1);
    canvas.files["huge.jpg"] = Picture::make(8000, 14000, 1);
    ASSERT_TRUE(canvas.view.SetPicture(FolderItem(folder.write("a.JPEG", "x"))));
    EXPECT_EQ(canvas.view.Image.Width(), 90);
    EXPECT_EQ(canvas.view.Image.Height(), 60);
    EXPECT_EQ(canvas.view.Image.pixel(31, 31), canvas.files["a.JPEG"].pixel(10, 10)) << "the middle of nine";
    ASSERT_TRUE(canvas.view.SetPicture(FolderItem(folder.write("a.png", "x"))));
    EXPECT_EQ(canvas.view.Image.Width(), 30);
    for (const char* name : {"broken.jpg", "huge.jpg"}) {
        canvas.messages.clear();
        EXPECT_FALSE(canvas.view.SetPicture(FolderItem(folder.write(name, "x"))));
        EXPECT_EQ(canvas.messages, std::vector<std::string>{"SmartCanvas: SetPicture: NilObjectException"}) << name;
    }
}

TEST(MouseCursor, ShowsWhatAPressWouldDo) {
    using Cursors = std::vector<MouseCursor>;
    const std::tuple<int, MouseCursor, Cursors> cases[] = {
        // mode, cursor, cursors at enter and exit
        {0, MouseCursor::ArrowNorthwestSoutheast, {}},
        {1, MouseCursor::Hand, {MouseCursor::Hand, MouseCursor::Default}},
        {2, MouseCursor::Hand, {}}};
    for (const auto& [mode, cursor, entered] : cases) {
        FakeCanvas canvas;
        canvas.view.Mode = mode;
        canvas.view.Event_MouseMove(3, 4);
        canvas.shift = true;
        canvas.view.Event_MouseMove(3, 4);
        EXPECT_EQ(std::exchange(canvas.cursors, {}), (Cursors{cursor, MouseCursor::Lens})) << mode;
        canvas.view.Event_MouseEnter();
        canvas.view.Event_MouseExit();
        EXPECT_EQ(canvas.cursors, entered) << mode;
    }
}

TEST(Press, OnAnEmptyCanvasIsRefused) {
    for (const int mode : {0, 1, 9})
        for (const bool selection : {false, true}) {
            FakeCanvas canvas;
            canvas.view.Mode = mode;
            canvas.view.SelectionMode = selection;
            EXPECT_FALSE(canvas.view.Event_MouseDown(1, 1));
            EXPECT_TRUE(canvas.view.Event_MouseWheel(1, 1, 0, 1)) << "a wheel is always taken";
            EXPECT_EQ(canvas.refreshes, 0);
        }
}

} // namespace
} // namespace velmarin
