#include "view/SmartCanvas.h"
#include "ImageFiles.h"
#include "platform/ScriptedHost.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QTest>
#include <QWheelEvent>

#include <cmath>
#include <tuple>

namespace velmarin {
namespace {

using test::noise;
using test::TempFolder;

/// A canvas in a window that does not begin at a whole pixel of every screen.
class SmartCanvasTest : public QObject, public ::testing::Test {
  protected:
    SmartCanvasTest() {
        window.resize(900, 800);
        canvas.setGeometry(19, 85, 800, 700);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
        canvas.installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    qreal dpr() const { return canvas.devicePixelRatioF(); }
    int device(double at) const { return static_cast<int>(std::lround(at * dpr())); }
    QImage shown() { return canvas.grab().toImage().convertToFormat(QImage::Format_RGB32); }

    /// What the screen must hold for a page drawn alone, made by the core.
    QImage expected(const PictureDrawn& page) {
        QImage image(shown().size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        PageRenderer renderer;
        const PixelBlock b = renderer.render(page, dpr(), {0, 0, image.width(), image.height()});
        const auto format = b.inColor ? QImage::Format_RGB32 : QImage::Format_Grayscale8;
        QPainter(&image).drawImage(b.place.x, b.place.y,
                                   QImage(b.data, b.place.width, b.place.height, b.stride, format));
        return image;
    }
    QImage expected(int w, int h, int sx, int sy) {
        const Picture& p = canvas.view().Image;
        return expected({p, 0, 0, w, h, sx, sy, p.Width(), p.Height()});
    }
    void show(const Picture& page, int mode) {
        canvas.setMode(mode);
        canvas.SetPicture(Picture(page));
    }
    int scrollY() {
        std::array<int, 4> a{};
        canvas.view().GetScrollPosition(a);
        return a[3];
    }
    void drag(const QPoint& to, Qt::MouseButtons buttons = Qt::LeftButton) {
        QMouseEvent move(QEvent::MouseMove, to, canvas.mapToGlobal(to), Qt::NoButton, buttons, Qt::NoModifier);
        QApplication::sendEvent(&canvas, &move);
    }
    /// How many pixels of a rectangle of the screen are dark in their green part, as ink and red are.
    int darkPixels(const QRect& logical) {
        const QImage part = shown().copy(QRect(QPoint(device(logical.left()), device(logical.top())),
                                               QPoint(device(logical.right()), device(logical.bottom()))));
        int dark = 0;
        for (int i = 0; i < part.width() * part.height(); ++i)
            dark += part.pixelColor(i % part.width(), i / part.width()).green() < 128 ? 1 : 0;
        return dark;
    }
    QColor colorAt(double x, double y) { return shown().pixelColor(device(x), device(y)); }
    void press(const QPoint& at) { QTest::mousePress(&canvas, Qt::LeftButton, Qt::NoModifier, at); }
    void release(const QPoint& at) { QTest::mouseRelease(&canvas, Qt::LeftButton, Qt::NoModifier, at); }

    ScriptedHost host;
    QWidget window;
    SmartCanvas canvas{host, &window};
    int paints = 0;
};

TEST_F(SmartCanvasTest, ShowsThePageInDevicePixelsInEveryMode) {
    for (const int depth : {1, 8, 32}) {
        const Picture page = noise(1000, 1500, depth, 1);
        for (const auto& [mode, width, height] :
             {std::tuple(0, 466, 700), {1, 1000, 1500}, {2, 800, 1200}, {5, 466, 700}}) {
            show(page, mode);
            EXPECT_EQ(shown(), expected(width, height, 0, 0)) << depth << " bits, mode " << mode;
        }
        show(page, 6);
        EXPECT_EQ(shown().pixelColor(9, 9), QColor(Qt::white));
    }
}

TEST_F(SmartCanvasTest, BeginsAtWholePixelsOfTheWindow) {
    // Stripes of one device pixel stay black and white wherever the control begins.
    const int pixels = device(400);
    if (std::abs(pixels - 400 * dpr()) > 1e-6)
        GTEST_SKIP() << "no page is as wide in pixels";
    canvas.setGeometry(19, 85, 400, 400);
    show(test::drawn(pixels, pixels, 1, [](int x, int) { return x % 2 == 0 ? 0u : 1u; }), 2);
    const QImage image = window.grab().toImage();
    for (int x = device(30); x < device(400); ++x)
        EXPECT_EQ(image.pixelColor(x, device(300)).red() % 255, 0);
}

TEST_F(SmartCanvasTest, FollowsADragAndPaintsEachStepOnce) {
    show(noise(1600, 3000, 1, 3), 2);
    press({400, 400});
    paints = 0;
    drag({400, 350});
    EXPECT_EQ(paints, 1);
    EXPECT_EQ(shown(), expected(800, 1500, 0, 100)) << "while the button is down";
    release({380, 350});
    EXPECT_EQ(shown(), expected(800, 1500, 0, 100));
    drag({380, 100});
    EXPECT_EQ(scrollY(), 100) << "after the button is up nothing drags";
    press({400, 400});
    drag({400, 350});
    drag({400, 300}, Qt::NoButton);
    drag({400, 100}, Qt::NoButton);
    EXPECT_EQ(scrollY(), 200) << "nor if the release never came";
    const QImage before = shown();
    QTest::mousePress(&canvas, Qt::RightButton, Qt::NoModifier, {400, 400});
    drag({400, 300});
    QTest::mouseRelease(&canvas, Qt::RightButton, Qt::NoModifier, {400, 300});
    EXPECT_EQ(shown(), before) << "nor the right button";
    const TempFolder folder;
    press({400, 400});
    drag({400, 350});
    EXPECT_FALSE(canvas.SetPicture(FolderItem(folder.write("a.tif", "text"))));
    drag({400, 300});
    release({400, 300});
    EXPECT_TRUE(host.messages.empty()) << "a drag ends with its page";
}

TEST_F(SmartCanvasTest, ShowsTheLensFromThePageItselfAndLeavesNoTrace) {
    show(noise(1600, 1400, 1, 4), 0);
    const QImage before = shown();
    press({100, 60});
    paints = 0;
    drag({200, 120});
    EXPECT_EQ(paints, 1) << "wiped and drawn in one";
    QImage want = before;
    want.setDevicePixelRatio(1);
    const QImage lens = expected({canvas.view().Image, 200, 120, 300, 100, 400, 240, 300, 100});
    const QRect place(QPoint(device(200), device(120)), QPoint(device(500) - 1, device(220) - 1));
    QPainter(&want).drawImage(place.topLeft(), lens.copy(place));
    EXPECT_EQ(shown(), want);
    EXPECT_EQ(shown(), want) << "a paint without a Refresh keeps it";
    release({200, 120});
    EXPECT_EQ(shown(), before);
    press({100, 60});
    canvas.hide();
    canvas.show();
    EXPECT_EQ(shown(), before) << "it disappears with its tab";
    release({100, 60});
}

TEST_F(SmartCanvasTest, SaysNoPictureInABoxUntilAPageLoads) {
    canvas.hide();
    canvas.setExtraText("No Picture");
    canvas.mDrawExtraText();
    canvas.resize(750, 650);
    canvas.show();
    QApplication::processEvents();
    const QImage box = shown();
    EXPECT_EQ(colorAt(0, 0), QColor(Qt::black)) << "drawn before its tab is first shown";
    EXPECT_EQ(box.pixelColor(device(400) - 1, device(10)), QColor(Qt::black));
    EXPECT_EQ(colorAt(400, 10), QColor(Qt::white));
    EXPECT_GT(darkPixels({15, 5, 85, 19}), 50);
    canvas.update();
    QApplication::processEvents();
    EXPECT_EQ(shown(), box);
    canvas.resize(700, 600);
    EXPECT_EQ(colorAt(0, 0), QColor(Qt::white)) << "a new size repaints";
    canvas.mDrawExtraText();
    show(Picture::make(100, 100, 1), 0);
    EXPECT_EQ(colorAt(0, 0), QColor(Qt::white));
}

TEST_F(SmartCanvasTest, AddsUpTheSmallStepsOfATouchpad) {
    show(Picture::make(1000, 3000, 1), 1);
    for (const auto& [angle, y] : {std::pair(-105, 0), {-15, 40}, {-110, 40}, {30, 40}, {-30, 40}, {-1000, 360}}) {
        QWheelEvent event(QPointF(50, 50), canvas.mapToGlobal(QPointF(50, 50)), QPoint(), {0, angle}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&canvas, &event);
        EXPECT_TRUE(event.isAccepted());
        EXPECT_EQ(scrollY(), y) << "a turn back starts from zero";
    }
}

TEST_F(SmartCanvasTest, ShowsWhatWasLoadedWhileItWasHidden) {
    canvas.hide();
    paints = 0;
    show(noise(3600, 3000, 1, 7), 2);
    canvas.Refresh();
    EXPECT_EQ(paints, 0);
    canvas.show();
    QApplication::processEvents();
    EXPECT_EQ(shown(), expected(800, 666, 0, 0));
    EXPECT_NE(canvas.renderer().reduced(), nullptr);
    canvas.hide();
    EXPECT_EQ(canvas.renderer().reduced(), nullptr) << "a hidden page takes no second place in memory";
}

TEST_F(SmartCanvasTest, HasTheCursorOfWhatAPressWouldDo) {
    show(Picture::make(1000, 3000, 1), 2);
    const auto cursor = [this] { return canvas.cursor().pixmap().toImage(); };
    QTest::mouseMove(&canvas, {50, 50});
    const QImage hand = cursor();
    EXPECT_EQ(hand.devicePixelRatio(), dpr());
    press({50, 50});
    EXPECT_NE(cursor(), hand);
    release({50, 50});
    EXPECT_EQ(cursor(), hand);
    host.shift.held = true;
    QTest::mouseMove(&canvas, {60, 50});
    EXPECT_NE(cursor(), hand);
}

TEST_F(SmartCanvasTest, DrawsAJumpAndASelectionOverThePage) {
    show(Picture::make(1000, 3000, 1), 1);
    paints = 0;
    canvas.mJumpScroll_vertical(1);
    EXPECT_EQ(paints, 1);
    EXPECT_EQ(colorAt(500, 50), QColor(255, 0, 0));
    EXPECT_EQ(shown().pixelColor(device(500), device(50) + static_cast<int>(std::lround(dpr()))), QColor(Qt::white));
    EXPECT_GT(darkPixels({5, 38, 50, 11}), 20) << "the position is written above the line";
    canvas.SmartScroll(0, 0);
    EXPECT_EQ(colorAt(500, 50), QColor(Qt::white)) << "until the next repaint";
    canvas.view().SelectionMode = true;
    press({100, 90});
    drag({300, 200});
    const QColor green(0, 255, 0);
    EXPECT_EQ(colorAt(200, 90), green);
    EXPECT_EQ(shown().pixelColor(device(200), device(200) - 1), green);
    EXPECT_EQ(colorAt(100, 150), green);
    EXPECT_EQ(colorAt(200, 150), QColor(Qt::white));
    release({300, 200});
}

} // namespace
} // namespace velmarin
