#include "side/SubWindow.h"

#include "SideFixture.h"
#include "controls/BevelButton.h"
#include "controls/PopupMenu.h"
#include "controls/TextStyleBevelButton.h"
#include "platform/QtText.h"
#include "side/ColorRect.h"
#include "side/SideAttachment.h"
#include "side/TextArea.h"
#include "side/WaitNotice.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QDockWidget>
#include <QEnterEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include <filesystem>
#include <stdexcept>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSettings = "400\n0\n1\nTrue\nFalse\nFind\nFalse\nFalse\nFalse\n-1\n";

void deletePosted() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// A side window at a main window.
class WindowFixture : public test::SideFixture {
  public:
    WindowFixture() {
        frame.setGeometry(100, 100, 838, 809);
        main.frame = &frame;
        QCursor::setPos(0, 0); // over no control
    }
    ~WindowFixture() { delete window; }

    SubWindow& open(Attachment attachment = Attachment::Window) {
        frame.show();
        window = new SubWindow(main, services(), attachment, [this](const QColor&) {
            return nextColor.isValid() ? std::optional(nextColor) : std::nullopt;
        });
        window->open();
        return *window;
    }
    /// Shuts the window and opens another one.
    SubWindow& reopen() {
        const Attachment attachment = window->attachment();
        window->shut();
        deletePosted();
        return open(attachment);
    }

    template <typename Control> Control& control(const char* name) {
        auto* found = window->findChild<Control*>(QLatin1String(name));
        if (found == nullptr)
            throw std::runtime_error(std::string("there is no ") + name);
        return *found;
    }
    QLineEdit& FindEF() { return *window->findBar().FindEF(); }
    TextArea& EF() { return *window->EF(); }
    /// Types the word in the place of what is there, and presses Return.
    void ask(const QString& word) {
        FindEF().setText(word);
        QTest::keyClick(&FindEF(), Qt::Key_Return);
    }

    QMainWindow frame;
    QColor nextColor;
    QPointer<SubWindow> window;
};

class SideWindow : public testing::Test, public WindowFixture {};

TEST_F(SideWindow, KeepsItsSettingsForTheNextOpening) {
    addUserDictionary("A", "a\n");
    addUserDictionary("B", "b\n");
    installWords("echo");
    open();
    for (const char* name : {"UserDicCB", "LatinCB", "DicAppCB", "SyncronizeCB", "DontClearCB"})
        control<QCheckBox>(name).click();
    QEnterEvent entered(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QApplication::sendEvent(&control<PopupMenu>("UserDicPU"), &entered);
    control<PopupMenu>("UserDicPU").setListIndex(1);
    window->takeTarget(FindTarget::LookUp);
    control<TextSizeBevelButton>("BVsize").SelectMenuFromFontSize(20);
    window->resize(400, window->height());
    const std::string font = std::to_string(control<TextFontBevelButton>("BVfonts").MenuValue());
    reopen();
    EXPECT_EQ(groupFolder.read("Subwindow"), "400\n" + font + "\n6\nFalse\nTrue\nDicApp\nTrue\nTrue\nTrue\n1\n");
    EXPECT_EQ(window->width(), 400);
    EXPECT_EQ(window->findBar().FindBV()->toolTip(), "Look the word up");
    for (const char* name : {"LatinCB", "SyncronizeCB", "DontClearCB", "UserDicCB", "DicAppCB"})
        EXPECT_EQ(control<QCheckBox>(name).isChecked(), name != std::string("DicAppCB")) << name;
    EXPECT_EQ(control<PopupMenu>("UserDicPU").List(control<PopupMenu>("UserDicPU").ListIndex()), "B");
    QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&control<PopupMenu>("UserDicPU"));
    const auto labels = heard->relations(QAccessible::Label);
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels[0].first->text(QAccessible::Name), "User Dic.");
    EXPECT_EQ(EF().font().pointSizeF(), 20);
    for (const bool on : {false, true, false}) {
        control<QCheckBox>("UserDicCB").click();
        EXPECT_EQ(control<PopupMenu>("UserDicPU").isEnabled(), on);
    }
    window->shut();
    groupFolder.write("Subwindow", "360\n-5\n999999\nTrue\nFalse\nFind\nFalse\nFalse\nFalse\n-1\n");
    open();
    EXPECT_FALSE(control<PopupMenu>("UserDicPU").isEnabled());
    EXPECT_EQ(window->model().settings().fontRow, control<TextFontBevelButton>("BVfonts").MenuValue());
    EXPECT_EQ(window->model().settings().sizeRow, control<TextSizeBevelButton>("BVsize").MenuValue());
}

TEST_F(SideWindow, FindsAndPaintsInTheColorOfTheWell) {
    open();
    EF().setWholeText("ab");
    const FindBar& bar = window->findBar();
    const auto paint = [&](int at) {
        QTextCursor cursor(EF().document());
        cursor.setPosition(at + 1);
        return cursor.charFormat().foreground().color();
    };
    const auto expectWord = [&](const QString& word, const QColor& color) {
        EXPECT_EQ(FindEF().text(), word);
        EXPECT_EQ(FindEF().palette().color(QPalette::Text), color);
        for (const BevelButton* button : {bar.FindBV(), bar.FindClBV()})
            EXPECT_EQ(button->isEnabled(), !word.isEmpty());
    };
    expectWord("", Qt::black);
    QTest::mouseClick(bar.FindColorRect(), Qt::LeftButton); // and the dialog is cancelled
    ask("AB");
    expectWord("AB", Qt::black);
    nextColor = QColor(1, 2, 3);
    QTest::keyClick(bar.FindColorRect(), Qt::Key_Space);
    EXPECT_EQ(bar.FindColorRect()->grab().toImage().pixelColor(8, 8), nextColor);
    ask("b");
    EXPECT_EQ(paint(0), QColor(0xFF, 0, 0));
    EXPECT_EQ(paint(1), nextColor);
    FindEF().setText("x");
    QTest::mouseClick(bar.FindBV(), Qt::LeftButton);
    expectWord("x", QColor(0x66, 0x66, 0x66));
    EXPECT_EQ(FindEF().selectedText(), "x");
    QTest::mouseClick(bar.FindClBV(), Qt::LeftButton);
    expectWord("", Qt::black);
    FindEF().undo();
    expectWord("x", Qt::black);
}

TEST_F(SideWindow, ShowsWhatItWaitsForUntilItIsStopped) {
    installWords("sleep 1000");
    open();
    auto& notice = control<WaitNotice>("WaitNotice");
    host.onYield = [&] {
        now += std::chrono::seconds(1);
        if (!notice.isVisible())
            return;
        EXPECT_EQ(notice.geometry().bottom(), EF().geometry().bottom());
        EXPECT_TRUE(notice.findChild<QLabel*>()->text().startsWith("Waiting for WORDS,"));
        QTest::mouseClick(notice.StopBT(), Qt::LeftButton);
    };
    control<QCheckBox>("LatinCB").click();
    EXPECT_FALSE(notice.isVisible());
    EXPECT_FALSE(control<QCheckBox>("LatinCB").isChecked());
}

TEST_F(SideWindow, ShutWhileItLooksUpIsDestroyedAtTheEndOfThat) {
    open().takeTarget(FindTarget::LookUp);
    ask("amor");
    EXPECT_EQ(fromQ(EF().Text()), test::kAmorBlock);
    host.onYield = [&] {
        window->shut();
        deletePosted();
        ASSERT_FALSE(window.isNull());
        EXPECT_FALSE(window->isVisible());
    };
    ask("amor");
    deletePosted();
    EXPECT_TRUE(window.isNull());
}

TEST_F(SideWindow, TakesATargetWithTheFocus) {
    QApplication::setActiveWindow(&open());
    FindEF().setText("amor");
    for (const FindTarget target : {FindTarget::LookUp, FindTarget::Find}) {
        EF().setFocus();
        window->takeTarget(target);
        EXPECT_EQ(window->model().settings().target, target);
        EXPECT_EQ(FindEF().selectedText(), target == FindTarget::Find ? "amor" : "");
        EXPECT_EQ(window->focusWidget(), &FindEF());
    }
    QTest::keyClick(&FindEF(), Qt::Key_Tab);
    EF().setFocus();
    EXPECT_EQ(std::vector(main.log.end() - 3, main.log.end()),
              (std::vector<std::string>{"no default", "focus all", "default"}));
}

TEST_F(SideWindow, GoesThroughItsControlsByTab) {
    open();
    std::string names;
    for (QWidget* control = &EF(); control->nextInFocusChain() != &EF(); control = control->nextInFocusChain())
        if (control->parentWidget() == window && (control->focusPolicy() & Qt::TabFocus) != 0)
            names += fromQ(control->objectName()) + " ";
    EXPECT_EQ(names, "EF BVfonts BVsize FindBV FindEF FindClBV FindColorRect SyncronizeCB DontClearCB LatinCB DicAppCB "
                     "UserDicBT UserDicCB UserDicPU ");
}

TEST(SideActivation, LeavesTheFocusToTheSearchFieldUnlessAFieldIsClicked) {
    const std::pair<const char*, bool> cases[] = {
        {"FindEF", true}, {"EF", true}, {"FindBV", true}, {"LatinCB", false}, {"StaticText1", false}};
    for (const auto& [under, stays] : cases) {
        SCOPED_TRACE(under);
        WindowFixture fixture;
        SubWindow& side = fixture.open();
        QApplication::setActiveWindow(&fixture.frame);
        fixture.FindEF().setText("a");
        auto& control = fixture.control<QWidget>(under);
        QCursor::setPos(control.mapToGlobal(control.rect().center()));
        QApplication::setActiveWindow(&side);
        auto& goBack = fixture.control<QTimer>("goBack");
        EXPECT_EQ(goBack.isActive(), !stays);
        if (stays)
            continue;
        QMetaObject::invokeMethod(&goBack, "timeout");
        EXPECT_EQ(fixture.main.log.back(), "focus");
        QApplication::setActiveWindow(&fixture.frame);
        EXPECT_FALSE(goBack.isActive()) << "the focus stays where it is";
        side.takeTarget(FindTarget::Find);
        QApplication::setActiveWindow(&side);
        EXPECT_FALSE(goBack.isActive()) << "the window has activated itself";
        QApplication::setActiveWindow(&fixture.frame);
        QApplication::setActiveWindow(&side);
        EXPECT_TRUE(goBack.isActive());
    }
}

TEST(SideEnd, ByTheMainWindowOrTheDesktopIsReportedAndSaved) {
    for (const Attachment attachment : {Attachment::Window, Attachment::Panel})
        for (const bool byMainWindow : {true, false}) {
            WindowFixture fixture;
            SubWindow& side = fixture.open(attachment);
            int closed = 0;
            QObject::connect(&side, &SubWindow::closed, [&] { ++closed; });
            (byMainWindow ? static_cast<QWidget&>(fixture.frame) : side).close();
            EXPECT_EQ(closed, 1);
            EXPECT_TRUE(fs::exists(fixture.groupFolder.path() / "Subwindow"));
            deletePosted();
            EXPECT_TRUE(fixture.window.isNull() || !byMainWindow);
        }
}

TEST(SideHangs, At) {
    const struct {
        QRect frame, content;
        int width;
        QRect place;
    } cases[] = {{{100, 100, 842, 840}, {102, 129, 838, 809}, 352, {942, 129, 352, 809}},
                 {{900, 0, 900, 840}, {900, 30, 900, 810}, 352, {1568, 30, 352, 810}},
                 {{0, 0, 1568, 840}, {0, 30, 1568, 810}, 352, {1568, 30, 352, 810}},
                 {{1900, 0, 900, 840}, {1900, 30, 900, 810}, 352, {1568, 30, 352, 810}},
                 {{100, 0, 900, 840}, {100, 30, 900, 810}, 3000, {0, 30, 3000, 810}}};
    for (const auto& each : cases)
        EXPECT_EQ(placeBeside(each.frame, each.content, each.width, QRect(0, 0, 1920, 1080)), each.place);
    for (const char* platform : {"wayland", "wayland-egl", "xcb", "offscreen"})
        EXPECT_EQ(attachmentFor(platform) == Attachment::Panel, QString(platform).contains("wayland")) << platform;
}

TEST_F(SideWindow, FollowsTheMainWindowAndIsMadeWiderAtItsFreeEdge) {
    frame.setGeometry(0, 0, 200, 500);
    SubWindow& side = open();
    EXPECT_TRUE(side.isWindow());
    for (const QRect& place : {QRect(0, 0, 200, 500), QRect(40, 20, 200, 500), QRect(0, 0, 180, 400)}) {
        frame.setGeometry(place);
        EXPECT_EQ(side.geometry(), placeBeside(frame.frameGeometry(), place, 352, side.screen()->availableGeometry()));
    }
    const QRect before = side.geometry();
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
    EXPECT_EQ(side.geometry(), before.adjusted(0, 0, 30, 0));
    drag(QEvent::MouseMove, -300);
    EXPECT_EQ(side.width(), 350);
}

TEST(SideWidth, KeepsTheWidthThatWasAskedForWhenTheDesktopRoundsIt) {
    for (const auto& [given, kept] : {std::pair{399, "400\n"}, std::pair{401, "400\n"}, std::pair{390, "390\n"}}) {
        WindowFixture fixture;
        fixture.groupFolder.write("Subwindow", kSettings);
        fixture.open().resize(given, fixture.window->height());
        fixture.frame.move(40, 20);
        fixture.window->shut();
        EXPECT_EQ(fixture.groupFolder.read("Subwindow").substr(0, 4), kept) << given;
    }
}

TEST_F(SideWindow, AsPanelIsInsideTheMainWindow) {
    groupFolder.write("Subwindow", kSettings);
    frame.setCentralWidget(new QWidget);
    open(Attachment::Panel);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->window(), &frame);
    EXPECT_EQ(window->width(), 400);
    EXPECT_EQ(window->mapTo(&frame, QPoint(400, 0)).x(), frame.width());
    fs::remove(groupFolder.at("Subwindow"));
    fs::create_directory(groupFolder.at("Subwindow"));
    reopen();
    EXPECT_EQ(main.notWritten.size(), 0U) << "nothing was changed, so nothing is lost";
    EXPECT_EQ(frame.findChildren<QDockWidget*>().size(), 1);
}

} // namespace
} // namespace velmarin
