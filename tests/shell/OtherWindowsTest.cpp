#include "Started.h"

#include "controls/BevelButton.h"
#include "controls/PopupMenu.h"
#include "controls/TabPanel.h"
#include "maintenance/EditDicDlg.h"
#include "shell/SideButton.h"
#include "side/SubWindow.h"
#include "view/PageImageWindow.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QEnterEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace velmarin::test {
namespace {

template <class Window> Window* openWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* found = qobject_cast<Window*>(widget); found != nullptr && found->isVisible())
            return found;
    return nullptr;
}

GroupBuilder groupWithErrata() {
    return GroupBuilder("G").dictionary(DictionaryBuilder("A")
                                            .entry("apple", "1.bmp", {"e1.bmp", "gone.bmp"})
                                            .entry("banana", "2.bmp")
                                            .entry("zzz", "3.bmp")
                                            .without("mPimg/gone.bmp"));
}

TEST(PageImages, OpenFromTheErrataStepTheirTabAndCloseWithTheGroup) {
    Started run;
    run.files().write("Preferences/PageImageW_Pref.txt", "5000\n-900\n100\n");
    run.group(groupWithErrata()).group(fruitGroup("H", 1)).start();
    run.pick("G");
    run.search("apple");
    run.choose("BVErrata.0", 1);
    EXPECT_EQ(openWindow<PageImageWindow>(), nullptr) << "a name without a file opens nothing";
    run.choose("BVErrata.0", 0);
    auto* window = openWindow<PageImageWindow>();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->screen()->availableGeometry().contains(window->frameGeometry())) << "saved beyond the screen";
    QTest::mouseClick(window->findChild<BevelButton*>("MainWinPage.1"), Qt::LeftButton);
    EXPECT_EQ(run.imageName(0), "2.bmp");
    window->close();
    QApplication::processEvents();
    run.search("apple");
    run.choose("BVErrata.0", 0);
    ASSERT_NE(openWindow<PageImageWindow>(), nullptr);
    run.pick("H");
    EXPECT_EQ(openWindow<PageImageWindow>(), nullptr) << "a change of group closes it";

    run.app().mMakeNewMainWin();
    run.pick("G", 1);
    run.search("apple", 1);
    run.choose("BVErrata.0", 0, 1);
    window = openWindow<PageImageWindow>();
    ASSERT_NE(window, nullptr);
    run.window(1).close();
    QTest::mouseClick(window->findChild<BevelButton*>("MainWinPage.1"), Qt::LeftButton);
    run.window(0).close();
    EXPECT_EQ(openWindow<PageImageWindow>(), nullptr) << "the last main window closes it";
    EXPECT_EQ(run.host.messages, std::vector<std::string>{});
}

TEST(SideWindow, OpensAndClosesWithItsButtonAndItsGroup) {
    Started run({fruitGroup("G", 1), fruitGroup("H", 1)});
    run.pick("G");
    const auto* button = run.control<BevelButton>("SubWinBV");
    for (const bool open : {true, false, true}) {
        run.click("SubWinBV");
        EXPECT_EQ(button->isChecked(), open);
        EXPECT_EQ(openWindow<SubWindow>() != nullptr, open);
        for (const char* item : {"SubwinDic", "SubwinFind"})
            EXPECT_EQ(run.window().menuBar()->findChild<QAction*>(item)->isEnabled(), open) << item;
    }
    EXPECT_EQ(run.read("DictionaryFolder/G/Subwindow").substr(0, 4), "352\n");
    openWindow<SubWindow>()->findChild<QCheckBox*>("DontClearCB")->click();
    std::filesystem::remove(run.groupFolder("G") / "Subwindow");
    std::filesystem::create_directory(run.groupFolder("G") / "Subwindow");
    run.pick("H");
    EXPECT_EQ(openWindow<SubWindow>(), nullptr);
    EXPECT_FALSE(button->isChecked());
    EXPECT_FALSE(std::filesystem::exists(run.groupFolder("H") / "Subwindow"));
    ASSERT_EQ(run.host.messages.size(), 1U);
    EXPECT_NE(run.host.messages[0].find("G/Subwindow"), std::string::npos) << "it could not be written";
}

TEST(SideWindow, TakesQueriesOnceSynchronizedAndShowsTheFingerIfAPressActs) {
    Started run({fruitGroup("G", 2)});
    run.click("SubWinBV");
    const SubWindow* side = openWindow<SubWindow>();
    ASSERT_NE(side, nullptr);
    const auto* word = side->findChild<QLineEdit*>("FindEF");
    for (const char* button : {"FindColorRect", "FindBV"}) { // there is no word to find yet
        QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
        QApplication::sendEvent(run.control<QWidget>(button), &enter);
        EXPECT_EQ(run.control<QWidget>(button)->cursor().shape() == Qt::BitmapCursor, button[4] == 'C') << button;
    }
    run.search("banana");
    EXPECT_EQ(word->text(), "");
    side->findChild<QCheckBox*>("SyncronizeCB")->click();
    run.search("cherry");
    EXPECT_EQ(word->text(), "cherry");
}

TEST(WindowsInFront, TakeOnlyTheCommandsOfTheApplication) {
    Started run({groupWithErrata().dictionary(fruit("B")), fruitGroup("H", 1)});
    run.pick("G");
    run.search("apple");
    run.click("SubWinBV");
    const Qt::KeyboardModifiers commandShift = Qt::ControlModifier | Qt::ShiftModifier;
    const auto* tabs = run.control<TabPanel>("TB");
    auto* side = openWindow<SubWindow>();
    QApplication::setActiveWindow(side);
    QTest::keyClick(side->findChild<QLineEdit*>("FindEF"), Qt::Key_Right, commandShift);
    EXPECT_EQ(tabs->Value(), 0) << "tabs are for the window in front";
    run.key(Qt::Key_Right, commandShift);
    EXPECT_EQ(tabs->Value(), 1);

    run.choose("BVErrata.0", 0);
    auto* extra = openWindow<PageImageWindow>();
    ASSERT_NE(extra, nullptr);
    QApplication::setActiveWindow(extra);
    QTest::keyClick(extra, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(run.app().windows().count(), 2);
    run.window(0).setWindowState(Qt::WindowMinimized);
    QTest::keyClick(extra, Qt::Key_9, Qt::ControlModifier);
    QTest::keyClick(extra, Qt::Key_0, Qt::ControlModifier);
    EXPECT_FALSE(run.window(0).isMinimized());
    EXPECT_EQ(run.host.messages, std::vector<std::string>{}) << "there is no window 9";
}

/// Installs a new dictionary "New" in the group.
void install(Started& run, const std::string& group) {
    run.host.folders = {fruit("New").writeTo(run.folder() / "elsewhere"), run.groupFolder(group)};
    run.app().commands().run("SpecialInstall", 0);
    run.host.messages.clear(); // "This dictionary is a new comer."
}

TEST(AnInstall, ResetsEveryWindowAndFreesItsGroup) {
    Started run({fruitGroup("G", 2)});
    run.search("banana");
    run.files().write("DictionaryFolder/G/DictionaryPreferences.txt", "G\t0\t\nB\t2\nA\t0\n");
    install(run, "G");
    EXPECT_EQ(run.control<TabPanel>("TB")->caption(0), "");
    EXPECT_EQ(run.control<PopupMenu>("SelectDicFolPU")->ListIndex(), -1);
    EXPECT_EQ(run.imageName(0), "");
    run.pick("G");
    EXPECT_EQ(run.control<TabPanel>("TB")->caption(0), "B") << "the window wrote its old order over the file";
    EXPECT_EQ(run.control<TabPanel>("TB")->PanelCount(), 3);
}

/// The order editor for the first window; null if it does not open.
EditDicDlg* editOrder(Started& run) {
    run.app().windows().ActiveMainWin = &run.window();
    run.app().commands().run("SpecialChangedictionaryorder", 0);
    return openWindow<EditDicDlg>();
}

TEST(OrderEditor, SavesTheNewOrderWhateverHappensToItsWindow) {
    const struct {
        const char* reason;
        std::function<void(Started&)> before;
        std::size_t shown; ///< dictionaries in the window after saving
    } cases[] = {
        {"nothing", [](Started&) {}, 2},
        {"an install", [](Started& run) { install(run, "H"); }, 2},
        {"an install, and another window took the group",
         [](Started& run) {
             install(run, "H");
             run.app().commands().run("Cons_FileNew", 0);
             run.pick("G", 1);
         },
         0},
        {"the window was closed, and its group is free",
         [](Started& run) {
             run.window().close();
             run.app().commands().run("Cons_FileNew", 0);
             run.pick("H", 1);
         },
         0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        Started run({fruitGroup("G", 2).preferences("Old\t0\t\nA\t2\nB\t2\n"), fruitGroup("H", 1)});
        EXPECT_EQ(editOrder(run), nullptr) << "no group is picked";
        run.pick("G");
        EditDicDlg* editor = editOrder(run);
        ASSERT_NE(editor, nullptr);
        editor->findChild<QLineEdit*>("EF")->setText("New");
        auto* save = editor->findChild<QPushButton*>("SaveBT");
        c.before(run);
        QApplication::processEvents();
        ASSERT_NE(openWindow<EditDicDlg>(), nullptr);
        QTest::mouseClick(save, Qt::LeftButton);
        QApplication::processEvents();
        EXPECT_EQ(openWindow<EditDicDlg>(), nullptr);
        EXPECT_EQ(run.read("DictionaryFolder/G/DictionaryPreferences.txt"), "New\nA\nB\n");
        EXPECT_EQ(run.window().group().pDictionaryItem.size(), c.shown);
        EXPECT_EQ(run.window().title() == "New", c.shown != 0);
    }
}

} // namespace
} // namespace velmarin::test
