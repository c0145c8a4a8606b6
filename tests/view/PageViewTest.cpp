#include "FakeCanvas.h"
#include "support/PictureDifference.h"
#include "support/TempFolder.h"
#include "text/NilObjectException.h"
#include "view/Encoders.h"

#include <gtest/gtest.h>

#include <utility>

namespace velmarin {
namespace {

using test::FakeCanvas;
using test::Point;
using test::TempFolder;

TEST(Painting, FollowsTheMode) {
    const struct {
        const char* name;
        int mode, imageWidth, imageHeight;
        double ratio;
        int w, h, sx, sy; ///< of the destination, and of the source
    } cases[] = {{"whole page, too high", 0, 1000, 2000, 0.35, 350, 700, 0, 0},
                 {"whole page, too wide", 0, 2000, 1000, 0.4, 800, 400, 0, 0},
                 {"whole page, too high though narrow", 0, 100, 1400, 0.5, 50, 700, 0, 0},
                 {"whole page, too wide though low", 0, 2000, 350, 0.4, 800, 140, 0, 0},
                 {"whole page, smaller", 0, 799, 699, 1.0, 799, 699, 0, 0},
                 {"whole page, as wide as the control", 0, 800, 350, 1.0, 800, 350, 0, 0},
                 {"whole page, as high as the control", 0, 100, 700, 1.0, 100, 700, 0, 0},
                 {"original size", 1, 1000, 2000, 1.0, 1000, 2000, 30, 40},
                 {"by width", 2, 1000, 2000, 0.8, 800, 1600, 0, 40},
                 {"by width, enlarged", 3, 400, 300, 2.0, 800, 600, 0, 40},
                 {"by width, truncated", 4, 900, 1001, 800 / 900.0, 800, 889, 0, 40},
                 {"by height", 5, 1000, 2000, 0.35, 350, 700, 30, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        FakeCanvas canvas;
        canvas.show(c.imageWidth, c.imageHeight, c.mode);
        canvas.view.SetScrollPosition(30, 40);
        canvas.view.Refresh();
        EXPECT_EQ(canvas.view.Ratio, c.ratio);
        EXPECT_EQ(canvas.painted, (std::vector<DrawCommand>{PictureDrawn{canvas.view.Image, 0, 0, c.w, c.h, c.sx, c.sy,
                                                                         c.imageWidth, c.imageHeight}}));
    }
}

TEST(Ratio, LagsOnePaintBehindSizeAndMode) {
    FakeCanvas canvas;
    canvas.show(1000, 2000, 2);
    canvas.width = 500;
    EXPECT_EQ(canvas.view.Ratio, 0.8);
    canvas.paint();
    EXPECT_EQ(canvas.view.Ratio, 0.5);
    canvas.view.Mode = 1;
    canvas.view.SmartScroll(0, -10000);
    EXPECT_EQ(canvas.position()[1], 600) << "by the limit of the mode before";
}

/// A canvas of a page that is scrolled, and a folder of files to load.
struct Loading : testing::Test {
    Loading() {
        canvas.show(2000, 3000, 1);
        canvas.view.SetScrollPosition(50, 60);
    }
    bool load(const char* name) { return canvas.view.SetPicture(FolderItem(folder.write(name, "x"))); }

    TempFolder folder;
    FakeCanvas canvas;
};

TEST_F(Loading, ShowsTheTopOfThePageWithWhiteEdges) {
    const Picture page = canvas.files["a.png"] = test::noise(900, 1500, 8, 1);
    ASSERT_FALSE(load("torn.png"));
    canvas.view.SetScrollPosition(50, 60);
    ASSERT_TRUE(load("a.png"));
    EXPECT_EQ(canvas.view.loadProblem(), "") << "no longer that of the page before";
    EXPECT_EQ(canvas.pagePoint(), (Point{0, 0}));
    EXPECT_EQ(test::difference(canvas.view.Image, Picture(page).withWhiteEdges()), 0);
}

TEST_F(Loading, OfAPicturePaintsOnceAtTheOldPosition) {
    ASSERT_TRUE(canvas.view.SetPicture(Picture::make(1000, 1000)));
    EXPECT_EQ(canvas.pagePoint(), (Point{50, 60}));
    canvas.paint();
    EXPECT_EQ(canvas.pagePoint(), (Point{0, 0}));
    EXPECT_FALSE(canvas.view.SetPicture(Picture()));
    EXPECT_EQ(canvas.view.Image.Width(), 1000) << "nil changes nothing";
}

TEST_F(Loading, KeepsThePageOfAMissingFileAndClearsThatOfAnUndecodableOne) {
    for (const auto& [file, problem] : {std::pair(FolderItem(), "there is no such file"),
                                        {FolderItem(folder.path() / "none.tif"), "there is no such file"},
                                        {FolderItem(folder.write("a.JPG", "x")), "torn"}}) {
        SCOPED_TRACE(problem);
        const bool missing = file.isNil() || !file.Exists();
        canvas.shift = true;
        canvas.view.Event_MouseDown(5, 5); // the lens
        const int before = canvas.refreshes;
        EXPECT_FALSE(canvas.view.SetPicture(file));
        EXPECT_EQ(canvas.view.loadProblem(), problem);
        EXPECT_EQ(canvas.view.Image.Width(), missing ? 2000 : 0);
        EXPECT_EQ(canvas.view.drawnOver().size(), missing ? 1u : 0u) << "the lens vanishes with the page";
        EXPECT_EQ(canvas.refreshes, before);
        EXPECT_TRUE(canvas.messages.empty());
        canvas.paint();
        EXPECT_EQ(canvas.painted.size(), missing ? 1u : 0u);
    }
}

TEST_F(Loading, EnlargesJpegOfAJpegBookThreefold) {
    canvas.view.pJpegBook = true;
    canvas.files["a.JPEG"] = canvas.files["a.png"] = test::noise(30, 20, 32, 1);
    canvas.files["huge.jpg"] = Picture::make(8000, 14000, 1);
    ASSERT_TRUE(load("a.JPEG"));
    EXPECT_EQ(canvas.view.Image.Width(), 90);
    EXPECT_EQ(canvas.view.Image.Height(), 60);
    EXPECT_EQ(canvas.view.Image.pixel(31, 31), canvas.files["a.JPEG"].pixel(10, 10)) << "the middle of nine";
    ASSERT_TRUE(load("a.png"));
    EXPECT_EQ(canvas.view.Image.Width(), 30);
    for (const char* name : {"broken.jpg", "huge.jpg"}) {
        canvas.messages.clear();
        EXPECT_FALSE(load(name));
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
        for (const bool shift : {false, true}) {
            canvas.shift = shift;
            canvas.view.Event_MouseMove(3, 4);
        }
        EXPECT_EQ(std::exchange(canvas.cursors, {}), (Cursors{cursor, MouseCursor::Lens})) << mode;
        canvas.view.Event_MouseEnter();
        canvas.view.Event_MouseExit();
        EXPECT_EQ(canvas.cursors, entered) << mode;
    }
}

struct ExtraText : testing::Test {
    using Commands = std::vector<DrawCommand>;
    FakeCanvas canvas;
    PageView& view = canvas.view;
};

TEST_F(ExtraText, IsAFramedBoxAtTheTopLeftInItsSettings) {
    view.mDrawExtraText();
    EXPECT_TRUE(view.drawnOver().empty()) << "no text, no box";
    view.pExtraText_Text = "No Picture";
    for (int i = 1; i <= 2; ++i) { // a box over itself is not drawn twice
        view.mDrawExtraText();
        EXPECT_EQ(view.drawnOver(),
                  (Commands{RectFilled{0, 0, 400, 30, kWhite}, RectDrawn{0, 0, 400, 30, 1, 1, kBlack},
                            StringDrawn{"No Picture", 15, 19, 380, {14, "System", false, false}, kBlack}}));
        EXPECT_EQ(canvas.measuredWidth, 380);
        EXPECT_EQ(canvas.drawn, i);
    }
    view.Refresh();
    EXPECT_TRUE(view.drawnOver().empty());
    view.mExtraTextSettings("", 0, true, true, 0, RGB(1, 2, 3), RGB(4, 5, 6), true);
    view.mDrawExtraText();
    EXPECT_EQ(canvas.over<RectDrawn>(1).w, 200);
    view.mExtraText_SetWidth(120);
    view.mExtraText_SetTextColor(RGB(9, 9, 9));
    view.Refresh();
    view.mDrawExtraText();
    EXPECT_EQ(view.drawnOver(),
              (Commands{RectFilled{0, 0, 120, 30, RGB(4, 5, 6)}, RectDrawn{0, 0, 120, 30, 1, 1, RGB(9, 9, 9)},
                        StringDrawn{"No Picture", 15, 19, 100, {14, "System", true, true}, RGB(9, 9, 9)}}));
}

TEST_F(ExtraText, WhenAppliedIsPartOfEveryPaintAndFollowsTheMouse) {
    canvas.show(100, 100, 1);
    view.pExtraText_Text = "note";
    view.pExtraText_Apply = true;
    view.Event_MouseMove(70, 80);
    canvas.paint();
    canvas.paint();
    ASSERT_EQ(canvas.painted.size(), 4u);
    EXPECT_EQ(std::get<RectFilled>(canvas.painted[1]).x, 70);
    EXPECT_EQ(std::get<RectFilled>(canvas.painted[1]).y, 80);
    EXPECT_TRUE(view.drawnOver().empty());
    view.Event_MouseDown(5, 6);
    view.Event_MouseUp(15, 16);
    EXPECT_EQ(canvas.cursors.back(), MouseCursor::IBeam);
    EXPECT_EQ(canvas.over<RectFilled>(2).y, 16);
    canvas.shift = true;
    view.Event_MouseMove(1, 1);
    view.Event_MouseUp(25, 26);
    EXPECT_EQ(view.pExtraText_x, 15);
}

TEST_F(ExtraText, MovesByTheArrowKeysWithinTheControl) {
    const struct {
        const char* key;
        Point from, to;
    } cases[] = {{"\x1e", {9, 9}, {9, 4}},     {"\x1e", {9, 3}, {9, 0}},     {"\x1f", {9, 9}, {9, 14}},
                 {"\x1f", {9, 698}, {9, 700}}, {"\x1c", {9, 9}, {2, 9}},     {"\x1c", {3, 9}, {0, 9}},
                 {"\x1d", {9, 9}, {16, 9}},    {"\x1d", {799, 9}, {800, 9}}, {"x", {9, 9}, {9, 9}}};
    view.pExtraText_Text = "note";
    view.pExtraText_Step = {7, 5};
    for (const auto& c : cases)
        for (const bool apply : {false, true}) {
            SCOPED_TRACE(testing::PrintToString(c.from) + " to " + testing::PrintToString(c.to));
            const int before = canvas.refreshes;
            view.pExtraText_x = c.from[0];
            view.pExtraText_y = c.from[1];
            view.pExtraText_Apply = apply;
            view.mExtraTextMove(c.key);
            EXPECT_EQ((Point{view.pExtraText_x, view.pExtraText_y}), apply ? c.to : c.from);
            EXPECT_EQ(canvas.refreshes - before, apply ? 1 : 0);
            EXPECT_TRUE(!apply || canvas.over<RectFilled>(2).x == c.to[0]);
        }
}

TEST(SavePicture, WritesWhatItsExtensionAsksForAndReportsAFailureInThreeFormatsOnly) {
    const struct {
        const char* name;
        const char* start;
        int depth; ///< of what is read back
        bool reported;
    } cases[] = {{"a.tif", "II*", 1, true},           {"b.TIFF", "II*", 1, true},
                 {"a.jpg", "\xff\xd8\xff", 32, true}, {"b.Jpeg", "\xff\xd8\xff", 32, true},
                 {"a.png", "\x89PNG", 32, true},      {"a.bmp", "BM", 32, false},
                 {"a.xyz", "\x89PNG", 32, false},     {"a", "\x89PNG", 32, false}};
    const Picture page = test::drawn(80, 60, 32, [](int x, int y) {
        return static_cast<std::uint32_t>(x < 40 ? 0x301008 : 0xe0f0d0) + static_cast<std::uint32_t>(y % 3);
    });
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const TempFolder folder;
        FakeCanvas canvas;
        canvas.view.SavePicture(page, FolderItem(folder.path() / c.name));
        EXPECT_TRUE(canvas.messages.empty());
        EXPECT_TRUE(folder.read(c.name).starts_with(c.start));
        const DecodedPicture back = decodePicture(FolderItem(folder.path() / c.name));
        ASSERT_TRUE(back.picture) << back.reason;
        EXPECT_EQ(back.picture.depth(), c.depth);
        EXPECT_NEAR(back.picture.pixel(10, 10).red, c.depth == 1 ? 0 : 0x30, 4);
        EXPECT_NEAR(back.picture.pixel(70, 10).green, c.depth == 1 ? 255 : 0xf0, 4);
        canvas.view.SavePicture(page, FolderItem(folder.path() / "missing" / c.name));
        EXPECT_EQ(canvas.messages, std::vector<std::string>(c.reported ? 1 : 0, "Error: Picture is not saved."));
    }
}

TEST(SavePicture, LeavesAGoodFileWhereTheFormatCannotHoldThePicture) {
    const TempFolder folder;
    const FolderItem file(folder.write("a.jpg", "good"));
    FakeCanvas canvas;
    canvas.view.SavePicture(Picture::make(70000, 1, 8), file);
    EXPECT_EQ(canvas.messages.size(), 1u);
    EXPECT_EQ(folder.read("a.jpg"), "good");
    canvas.view.SavePicture(Picture(), file);
    EXPECT_EQ(canvas.messages.size(), 1u) << "nil is nothing";
    EXPECT_THROW(canvas.view.SavePicture(Picture::make(1, 1), FolderItem()), NilObjectException);
}

TEST(Otsu, PartsTheTwoSorts) {
    for (const auto& [dark, light] : {Point{30, 220}, {120, 160}, {5, 60}}) {
        const Picture p = test::drawn(60, 60, 8, [dark = dark, light = light](int x, int y) {
            return static_cast<std::uint32_t>((x * y) % 7 == 0 ? dark + x % 3 - 1 : light + y % 3 - 1);
        });
        EXPECT_GT(otsuThreshold(p), dark);
        EXPECT_LE(otsuThreshold(p), light);
    }
    EXPECT_EQ(otsuThreshold(Picture::make(5, 5, 8)), 128) << "all of one sort";
    EXPECT_EQ(otsuThreshold(test::drawn(9, 9, 8, [](int x, int) { return x % 2 * 100U; })), 50) << "the middle";
}

} // namespace
} // namespace velmarin
