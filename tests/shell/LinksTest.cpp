#include "Started.h"

#include "controls/BevelButton.h"
#include "controls/ListBox.h"
#include "controls/PopupMenu.h"
#include "controls/QtText.h"
#include "controls/TabPanel.h"
#include "maintenance/EditDicDlg.h"
#include "shell/GroupPicker.h"
#include "shell/SideLink.h"
#include "side/SubWindow.h"
#include "view/PageImageWindow.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
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

TEST(ErrataMenu, OpensThePageImageWindowWhichStepsTheTabItCameFrom) {
    Started run({groupWithErrata(), fruitGroup("H", 1)});
    run.pick("G");
    run.search("apple");
    run.choose("BVErrata.0", 1);
    EXPECT_EQ(openWindow<PageImageWindow>(), nullptr) << "a name without a file opens nothing";
    run.choose("BVErrata.0", 0);
    auto* window = openWindow<PageImageWindow>();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(run.app().module.pPageImageShown);
    QTest::mouseClick(window->findChild<BevelButton*>("MainWinPage.1"), Qt::LeftButton);
    EXPECT_EQ(run.imageName(0), "2.bmp");
    window->close();
    QApplication::processEvents();
    EXPECT_FALSE(run.app().module.pPageImageShown);
    run.search("apple");
    run.choose("BVErrata.0", 0);
    ASSERT_NE(openWindow<PageImageWindow>(), nullptr);
    run.pick("H");
    EXPECT_EQ(openWindow<PageImageWindow>(), nullptr) << "a change of group closes it";
    EXPECT_EQ(run.host.messages, std::vector<std::string>{});
}

TEST(ErrataMenu, APageImageWindowSavedBeyondTheScreenIsBroughtIn) {
    Started run;
    run.group(groupWithErrata());
    run.files().write("Preferences/PageImageW_Pref.txt", "5000\n-900\n100\n");
    run.start();
    run.search("apple");
    run.choose("BVErrata.0", 0);
    auto* window = openWindow<PageImageWindow>();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->screen()->availableGeometry().contains(window->frameGeometry()));
}

TEST(SideWindow, OpensAndClosesWithItsButtonAndGoesWithItsGroup) {
    Started run({fruitGroup("G", 1), fruitGroup("H", 1)});
    run.pick("G");
    auto* button = run.control<BevelButton>("SubWinBV");
    run.click("SubWinBV");
    ASSERT_NE(run.window().sideLink().pMySubWin(), nullptr);
    EXPECT_TRUE(button->isChecked());
    run.click("SubWinBV");
    EXPECT_FALSE(run.window().sideLink().pSubWinShown());
    EXPECT_FALSE(button->isChecked());
    EXPECT_EQ(run.read("DictionaryFolder/G/Subwindow").substr(0, 4), "352\n");
    run.click("SubWinBV");
    run.pick("H");
    EXPECT_FALSE(run.window().sideLink().pSubWinShown());
    EXPECT_FALSE(std::filesystem::exists(run.groupFolder("H") / "Subwindow"));
}

TEST(SideWindow, AQueryGoesThereOnlyWhenSynchronised) {
    Started run({fruitGroup("G", 1)});
    run.click("SubWinBV");
    SubWindow* side = run.window().sideLink().pMySubWin();
    ASSERT_NE(side, nullptr);
    auto* word = side->findChild<QLineEdit*>("FindEF");
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
    for (const char* item : {"SubwinDic", "SubwinFind"})
        EXPECT_FALSE(run.window().menuBar()->findChild<QAction*>(item)->isEnabled()) << item;
    run.click("SubWinBV");
    SubWindow* side = run.window().sideLink().pMySubWin();
    for (const char* item : {"SubwinDic", "SubwinFind"})
        EXPECT_TRUE(run.window().menuBar()->findChild<QAction*>(item)->isEnabled()) << item;
    auto* tabs = run.control<TabPanel>("TB");
    ASSERT_EQ(tabs->Value(), 0);
    QApplication::setActiveWindow(side);
    QTest::keyClick(side->findChild<QLineEdit*>("FindEF"), Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(tabs->Value(), 0) << "tabs are for the window in front";
    run.key(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(tabs->Value(), 1);

    run.choose("BVErrata.0", 0);
    auto* extra = openWindow<PageImageWindow>();
    ASSERT_NE(extra, nullptr);
    QApplication::setActiveWindow(extra);
    QTest::keyClick(extra, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(run.app().MainWinList().size(), 2U);
}

/// Opens the order editor for the window, types "New" as the group's name and returns the button that saves.
QPushButton* editOrder(Started& run) {
    run.app().ActiveMainWin = &run.window();
    run.app().handle("SpecialChangedictionaryorder", 0);
    auto* editor = openWindow<EditDicDlg>();
    if (editor == nullptr)
        throw std::runtime_error("the order editor did not open");
    editor->findChild<QLineEdit*>("EF")->setText("New");
    return editor->findChild<QPushButton*>("SaveBT");
}

TEST(OrderEditor, SavesTheNewOrderAndTheWindowFollowsAtOnce) {
    Started run({fruitGroup("G", 2).preferences("Old\t0\t\nA\t2\nB\t2\n")});
    QTest::mouseClick(editOrder(run), Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_EQ(run.read("DictionaryFolder/G/DictionaryPreferences.txt"), "New\nA\nB\n");
    EXPECT_EQ(run.window().title(), "New");
    EXPECT_EQ(run.window().group().pDictionaryItem.size(), 2U);
}

TEST(OrderEditor, StaysOpenAndSavesWhenItsWindowLosesTheGroup) {
    const struct {
        const char* how;
        std::function<void(Started&)> lose;
        std::size_t shown; ///< dictionaries in the window after saving
    } cases[] = {
        {"an install", [](Started& run) { MaintenanceLink(run.app()).resetToNoGroup(0); }, 2},
        {"an install, and another window took the group",
         [](Started& run) {
             MaintenanceLink(run.app()).resetToNoGroup(0);
             run.app().handle("Cons_FileNew", 0);
             run.pick("G", 1);
         },
         0},
        {"the window was closed", [](Started& run) { run.window().close(); }, 0},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.how);
        Started run({fruitGroup("G", 2).preferences("Old\t0\t\nA\t2\nB\t2\n"), fruitGroup("H", 1)});
        run.pick("G");
        QPushButton* save = editOrder(run);
        each.lose(run);
        QApplication::processEvents();
        ASSERT_NE(openWindow<EditDicDlg>(), nullptr);
        QTest::mouseClick(save, Qt::LeftButton);
        QApplication::processEvents();
        EXPECT_EQ(openWindow<EditDicDlg>(), nullptr);
        EXPECT_EQ(run.read("DictionaryFolder/G/DictionaryPreferences.txt"), "New\nA\nB\n");
        EXPECT_EQ(run.window().group().pDictionaryItem.size(), each.shown);
    }
}

TEST(OrderEditor, DoesNothingWithoutAPickedGroup) {
    Started run({fruitGroup("G", 1), fruitGroup("H", 1)});
    run.app().ActiveMainWin = &run.window();
    run.app().handle("SpecialChangedictionaryorder", 0);
    for (QWidget* widget : QApplication::topLevelWidgets())
        EXPECT_EQ(widget->findChild<QPushButton*>("SaveBT"), nullptr);
}

TEST(AfterAnInstall, EveryWindowIsResetAndItsGroupCanBePickedAgain) {
    Started run({fruitGroup("G", 2)});
    run.search("banana");
    run.files().write("DictionaryFolder/G/DictionaryPreferences.txt", "G\t0\t\nB\t2\nA\t0\n");
    MaintenanceLink link(run.app());
    link.resetToNoGroup(0);
    EXPECT_EQ(run.control<TabPanel>("TB")->caption(0), "");
    EXPECT_EQ(run.control<PopupMenu>("SelectDicFolPU")->ListIndex(), -1);
    EXPECT_EQ(run.imageName(0), "");
    run.pick("G");
    EXPECT_EQ(run.control<TabPanel>("TB")->caption(0), "B") << "the window wrote its old order over the file";
}

TEST(SideWindow, ItsSmallButtonsShowTheFingerWhereAPressActs) {
    Started run({fruitGroup("G", 1)});
    run.click("SubWinBV");
    const auto shape = [&run](const char* name, QEvent::Type type) {
        auto* control = run.control<QWidget>(name);
        QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(control, type == QEvent::Enter ? static_cast<QEvent*>(&enter) : &leave);
        return control->cursor().shape();
    };
    EXPECT_EQ(shape("FindColorRect", QEvent::Enter), Qt::BitmapCursor);
    EXPECT_EQ(shape("FindBV", QEvent::Enter), Qt::ArrowCursor) << "there is no word to find yet";
    run.control<QLineEdit>("FindEF")->setText("word");
    EXPECT_EQ(shape("FindBV", QEvent::Enter), Qt::BitmapCursor);
    EXPECT_EQ(shape("FindClBV", QEvent::Enter), Qt::BitmapCursor);
    EXPECT_EQ(shape("FindBV", QEvent::Leave), Qt::SizeAllCursor);
}

} // namespace
} // namespace velmarin::test
