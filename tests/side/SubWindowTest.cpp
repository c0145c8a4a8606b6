#include "WindowFixture.h"

#include "controls/BevelButton.h"
#include "platform/QtText.h"
#include "side/ColorRect.h"
#include "side/WaitNotice.h"

#include <QApplication>
#include <QEnterEvent>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <filesystem>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::WindowFixture;
using SideWindow = test::WindowTest;

TEST_F(SideWindow, KeepsItsSettingsForTheNextOpening) {
    addUserDictionary("A", "a\n");
    addUserDictionary("B", "b\n");
    installWords("echo");
    open();
    auto& popup = control<PopupMenu>("UserDicPU");
    EXPECT_TRUE(popup.isEnabled()) << "only the check box disables it";
    for (const char* name : {"UserDicCB", "LatinCB", "DicAppCB", "SyncronizeCB", "DontClearCB"})
        control<QCheckBox>(name).click();
    QEnterEvent entered(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QApplication::sendEvent(&popup, &entered);
    popup.setListIndex(1);
    side().takeTarget(FindTarget::LookUp);
    control<TextSizeBevelButton>("BVsize").SelectMenuFromFontSize(20);
    side().resize(400, side().height());
    const int font = control<TextFontBevelButton>("BVfonts").MenuValue();
    EF().setWholeText("gone");

    SubWindow& side = reopen();
    EXPECT_EQ(groupFolder.read("Subwindow"),
              "400\n" + std::to_string(font) + "\n6\nFalse\nTrue\nDicApp\nTrue\nTrue\nTrue\n1\n");
    EXPECT_EQ(side.width(), 400);
    EXPECT_EQ(side.findBar().FindBV()->toolTip(), "Look the word up");
    for (const char* name : {"LatinCB", "SyncronizeCB", "DontClearCB", "UserDicCB"})
        EXPECT_TRUE(control<QCheckBox>(name).isChecked()) << name;
    EXPECT_FALSE(control<QCheckBox>("DicAppCB").isChecked());
    EXPECT_EQ(control<PopupMenu>("UserDicPU").List(control<PopupMenu>("UserDicPU").ListIndex()), "B");
    EXPECT_EQ(EF().font().pointSizeF(), 20);
    EXPECT_EQ(EF().textLength(), 0);
    control<QCheckBox>("UserDicCB").click();
    EXPECT_FALSE(control<PopupMenu>("UserDicPU").isEnabled());

    side.shut();
    groupFolder.write("Subwindow", "360\n-5\n999999\nTrue\nFalse\nFind\nFalse\nFalse\nFalse\n-1\n");
    open();
    EXPECT_FALSE(control<PopupMenu>("UserDicPU").isEnabled());
    EXPECT_EQ(this->side().model().settings().fontRow, control<TextFontBevelButton>("BVfonts").MenuValue());
    EXPECT_EQ(this->side().model().settings().sizeRow, control<TextSizeBevelButton>("BVsize").MenuValue());
}

TEST_F(SideWindow, LooksUpAndSynchronizes) {
    open();
    control<QCheckBox>("SyncronizeCB").click();
    side().synchronise("amor");
    EXPECT_EQ(fromQ(EF().Text()), test::kAmorBlock);
    EXPECT_EQ(FindEF().text(), "amor");
    EXPECT_EQ(side().findBar().FindBV()->toolTip(), "Find the word in the text");
    host.option.held = true;
    side().takeTarget(FindTarget::LookUp);
    QTest::mouseClick(side().findBar().FindBV(), Qt::LeftButton);
    EXPECT_EQ(std::count(main.log.begin(), main.log.end(), "search amor"), 1);
}

TEST_F(SideWindow, FindsAndPaintsInTheColorOfTheWell) {
    open();
    EF().setWholeText("ab");
    const FindBar& bar = side().findBar();
    const auto paint = [&](int at) {
        QTextCursor cursor(EF().document());
        cursor.setPosition(at + 1);
        return cursor.charFormat().foreground().color();
    };
    const auto expectWord = [&](const QString& word, const QColor& color) {
        EXPECT_EQ(FindEF().text(), word);
        EXPECT_EQ(FindEF().palette().color(QPalette::Text), color);
        EXPECT_EQ(bar.FindBV()->isEnabled(), !word.isEmpty());
        EXPECT_EQ(bar.FindClBV()->isEnabled(), !word.isEmpty());
    };
    expectWord("", Qt::black);
    QTest::mouseClick(bar.FindColorRect(), Qt::LeftButton);
    ask("AB");
    expectWord("AB", Qt::black);
    EXPECT_EQ(FindEF().selectedText(), "AB");
    EXPECT_EQ(paint(1), QColor(0xFF, 0, 0)) << "a cancelled dialog leaves the color";
    nextColor = QColor(1, 2, 3);
    QTest::keyClick(bar.FindColorRect(), Qt::Key_Space);
    EXPECT_EQ(bar.FindColorRect()->grab().toImage().pixelColor(8, 8), nextColor);
    ask("b");
    EXPECT_EQ(paint(0), QColor(0xFF, 0, 0));
    EXPECT_EQ(paint(1), nextColor);
    ask("x");
    expectWord("x", QColor(0x66, 0x66, 0x66));
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
    const QPointer<SubWindow> watched(&side());
    host.onYield = [&] {
        side().shut();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ASSERT_FALSE(watched.isNull());
        EXPECT_FALSE(side().isVisible());
    };
    ask("amor");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(watched.isNull());
}

TEST_F(SideWindow, TakesATargetWithTheFocus) {
    SubWindow& side = open();
    QApplication::setActiveWindow(&side);
    FindEF().setText("amor");
    for (const FindTarget target : {FindTarget::LookUp, FindTarget::Find}) {
        EF().setFocus();
        side.takeTarget(target);
        EXPECT_EQ(side.model().settings().target, target);
        EXPECT_EQ(FindEF().selectedText(), target == FindTarget::Find ? "amor" : "");
        EXPECT_EQ(side.focusWidget(), &FindEF());
    }
    EXPECT_EQ(main.log.back(), "no default");
    QTest::keyClick(&FindEF(), Qt::Key_Tab);
    EXPECT_EQ(main.log.back(), "focus all");
    EF().setFocus();
    EXPECT_EQ(main.log.back(), "default");
}

TEST_F(SideWindow, GoesThroughItsControlsByTab) {
    open();
    std::string names;
    for (QWidget* control = &EF(); control->nextInFocusChain() != &EF(); control = control->nextInFocusChain())
        if (control->parentWidget() == &side() && (control->focusPolicy() & Qt::TabFocus) != 0)
            names += fromQ(control->objectName()) + " ";
    EXPECT_EQ(names, "EF BVfonts BVsize FindBV FindEF FindClBV FindColorRect SyncronizeCB DontClearCB LatinCB DicAppCB "
                     "UserDicBT UserDicCB UserDicPU ");
}

TEST(SideActivation, LeavesTheFocusToTheSearchFieldUnlessAFieldIsClicked) {
    const std::pair<const char*, bool> cases[] = {{"", false},      {"FindEF", true},   {"EF", true},
                                                  {"FindBV", true}, {"LatinCB", false}, {"StaticText1", false}};
    for (const auto& [under, stays] : cases) {
        SCOPED_TRACE(under);
        WindowFixture fixture;
        SubWindow& side = fixture.open();
        QApplication::setActiveWindow(&fixture.frame);
        fixture.FindEF().setText("a");
        QWidget* control = *under == '\0' ? nullptr : &fixture.control<QWidget>(under);
        QCursor::setPos(control == nullptr ? side.mapToGlobal(QPoint(5, 300))
                                           : control->mapToGlobal(control->rect().center()));
        fixture.main.log.clear();
        QApplication::setActiveWindow(&side);
        auto& goBack = fixture.control<QTimer>("goBack");
        EXPECT_EQ(goBack.isActive(), !stays);
        if (!goBack.isActive())
            continue;
        QMetaObject::invokeMethod(&goBack, "timeout");
        EXPECT_EQ(fixture.main.log.back(), "focus");
        // If the window is left before the time is over, the focus stays where it is.
        QApplication::setActiveWindow(&fixture.frame);
        EXPECT_FALSE(goBack.isActive());
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
            const QPointer<SubWindow> watched(&side);
            int closed = 0;
            QObject::connect(&side, &SubWindow::closed, [&] { ++closed; });
            (byMainWindow ? static_cast<QWidget&>(fixture.frame) : side).close();
            EXPECT_EQ(closed, 1);
            EXPECT_TRUE(fs::exists(fixture.groupFolder.path() / "Subwindow"));
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            EXPECT_TRUE(watched.isNull() || !byMainWindow);
        }
}

} // namespace
} // namespace velmarin
