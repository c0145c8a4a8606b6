#include "side/SideAttachment.h"

#include "WindowFixture.h"

#include <QApplication>
#include <QDockWidget>
#include <QMouseEvent>
#include <QScreen>

#include <filesystem>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::WindowFixture;
using SideHangsAsWindow = test::WindowTest;
using SideHangsAsPanel = test::WindowTest;

TEST(SideHangs, At) {
    const struct {
        const char* name;
        QRect frame, content;
        int width;
        QRect place;
    } cases[] = {{"FlushWithTheFrame", {100, 100, 842, 840}, {102, 129, 838, 809}, 352, {942, 129, 352, 809}},
                 {"OverlapsWhereTheScreenEnds", {900, 0, 900, 840}, {900, 30, 900, 810}, 352, {1568, 30, 352, 810}},
                 {"JustFits", {0, 0, 1568, 840}, {0, 30, 1568, 810}, 352, {1568, 30, 352, 810}},
                 {"MainWindowOffTheScreen", {1900, 0, 900, 840}, {1900, 30, 900, 810}, 352, {1568, 30, 352, 810}},
                 {"WiderThanTheScreen", {100, 0, 900, 840}, {100, 30, 900, 810}, 3000, {0, 30, 3000, 810}}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        EXPECT_EQ(placeBeside(each.frame, each.content, each.width, QRect(0, 0, 1920, 1080)), each.place);
    }
}

TEST(SideHangsAs, APanelIfProgramsCannotPlaceTheirWindows) {
    for (const char* platform : {"wayland", "wayland-egl", "xcb", "offscreen"})
        EXPECT_EQ(attachmentFor(platform) == Attachment::Panel, QString(platform).contains("wayland")) << platform;
}

TEST_F(SideHangsAsWindow, FollowsTheMainWindow) {
    frame.setGeometry(10, 10, 300, 500);
    SubWindow& side = open();
    const auto expected = [&] {
        return placeBeside(frame.frameGeometry(), frame.geometry(), side.width(), side.screen()->availableGeometry());
    };
    EXPECT_TRUE(side.isWindow());
    EXPECT_EQ(side.geometry(), expected());
    frame.move(40, 20);
    EXPECT_EQ(side.geometry(), expected());
    frame.resize(280, 400);
    EXPECT_EQ(side.geometry(), expected());
    EXPECT_EQ(side.height(), 400);
}

TEST_F(SideHangsAsWindow, IsMadeWiderAtItsFreeEdge) {
    frame.setGeometry(0, 0, 200, 500);
    SubWindow& side = open();
    const int before = side.width();
    const int left = side.x();
    auto& grip = control<QWidget>("EdgeGrip");
    ASSERT_GT(grip.x(), side.width() / 2);
    const QPoint from = grip.mapToGlobal(QPoint(2, 100));
    const auto drag = [&](QEvent::Type type, int by) {
        QMouseEvent event(type, QPointF(2, 100), QPointF(from + QPoint(by, 0)),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&grip, &event);
    };
    drag(QEvent::MouseButtonPress, 0);
    drag(QEvent::MouseMove, 30);
    EXPECT_EQ(side.width(), before + 30);
    EXPECT_EQ(side.x(), left);
    drag(QEvent::MouseMove, -300);
    EXPECT_EQ(side.width(), 350);
}

TEST(SideWidth, KeepsTheWidthThatWasAskedForWhenTheDesktopRoundsIt) {
    for (const auto& [given, kept] : {std::pair{399, "400\n"}, std::pair{401, "400\n"}, std::pair{390, "390\n"}}) {
        WindowFixture fixture;
        fixture.groupFolder.write("Subwindow", "400\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nFalse\n-1\n");
        SubWindow& side = fixture.open();
        side.resize(given, side.height());
        fixture.frame.move(40, 20);
        side.shut();
        EXPECT_EQ(fixture.groupFolder.read("Subwindow").substr(0, 4), kept) << given;
    }
}

TEST_F(SideHangsAsPanel, IsInsideTheMainWindow) {
    groupFolder.write("Subwindow", "400\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nFalse\n-1\n");
    frame.setCentralWidget(new QWidget);
    open(Attachment::Panel);
    EXPECT_FALSE(side().isWindow());
    EXPECT_TRUE(side().isVisible());
    EXPECT_EQ(side().window(), &frame);
    EXPECT_EQ(side().width(), 400);
    EXPECT_EQ(side().mapTo(&frame, QPoint(side().width(), 0)).x(), frame.width());
    fs::remove(groupFolder.path() / "Subwindow");
    fs::create_directory(groupFolder.path() / "Subwindow");
    reopen();
    EXPECT_EQ(main.notWritten.size(), 0U) << "nothing was changed, so nothing is lost";
    EXPECT_EQ(frame.findChildren<QDockWidget*>().size(), 1);
}

} // namespace
} // namespace velmarin
