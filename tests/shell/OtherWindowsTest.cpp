#include "Started.h"

#include "controls/PopupMenu.h"
#include "maintenance/EditDicDlg.h"
#include "side/SubWindow.h"
#include "view/PageImageWindow.h"

#include <QAction>
#include <QCheckBox>
#include <QEnterEvent>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>

namespace velmarin::test {
namespace {

GroupBuilder groupWithErrata() {
    DictionaryBuilder dictionary("A");
    dictionary.entry("apple", "1.bmp", {"e1.bmp", "gone.bmp"}).entry("banana", "2.bmp").entry("zzz", "3.bmp");
    return GroupBuilder("G").dictionary(dictionary.without("mPimg/gone.bmp")).dictionary(fruit("B"));
}

PageImageWindow* openErratum(Started& run, int window = 0, int row = 0) {
    run.pick("G", window);
    run.search("apple", window);
    run.choose("BVErrata.0", row, window);
    return openWindow<PageImageWindow>();
}

TEST(PageImages, OpenFromTheErrataStepTheirTabAndCloseWithTheGroup) {
    Started run({groupWithErrata(), fruitGroup("H", 1)},
                [](const TempFolder& files) { files.write("Preferences/PageImageW_Pref.txt", "5000\n-900\n100\n"); });
    PageImageWindow* window = openErratum(run);
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->screen()->availableGeometry().contains(window->frameGeometry())) << "saved beyond the screen";
    QTest::mouseClick(window->findChild<BevelButton*>("MainWinPage.1"), Qt::LeftButton);
    EXPECT_EQ(run.imageName(), "2.bmp");
    run.pick("H");
    EXPECT_EQ(openWindow<PageImageWindow>(), nullptr) << "a change of group closes it";

    run.app().mMakeNewMainWin();
    window = openErratum(run, 1);
    ASSERT_NE(window, nullptr);
    run.window(1).close();
    QTest::mouseClick(window->findChild<BevelButton*>("MainWinPage.1"), Qt::LeftButton);
    run.window(0).close();
    EXPECT_EQ(openWindow<PageImageWindow>(), nullptr) << "the last main window closes it";
    run.app().commands().run("WinItem", 0);
    EXPECT_EQ(openErratum(run, 0, 1), nullptr) << "a name without a file opens nothing";
    EXPECT_EQ(run.host.messages, std::vector<std::string>{});
}

TEST(SideWindow, OpensAndClosesWithItsButtonAndItsGroup) {
    Started run({fruitGroup("G", 1), fruitGroup("H", 1)});
    run.pick("G");
    for (const bool open : {true, false, true}) {
        run.click("SubWinBV");
        EXPECT_EQ(run.button("SubWinBV").isChecked(), open);
        EXPECT_EQ(openWindow<SubWindow>() != nullptr, open);
        for (const char* item : {"SubwinDic", "SubwinFind"})
            EXPECT_EQ(run.window().menuBar()->findChild<QAction*>(item)->isEnabled(), open) << item;
    }
    openWindow<SubWindow>()->findChild<QCheckBox*>("DontClearCB")->click();
    std::filesystem::remove(run.groupFolder("G") / "Subwindow");
    std::filesystem::create_directory(run.groupFolder("G") / "Subwindow");
    run.pick("H");
    EXPECT_EQ(openWindow<SubWindow>(), nullptr);
    EXPECT_FALSE(run.button("SubWinBV").isChecked());
    EXPECT_FALSE(std::filesystem::exists(run.groupFolder("H") / "Subwindow"));
    ASSERT_EQ(run.host.messages.size(), 1U);
    EXPECT_NE(run.host.messages[0].find("G/Subwindow"), std::string::npos) << "it could not be written";
}

TEST(SideWindow, TakesQueriesOnceSynchronizedAndShowsTheFingerIfAPressActs) {
    Started run({fruitGroup("G", 2)});
    run.click("SubWinBV");
    const SubWindow* side = openWindow<SubWindow>();
    ASSERT_NE(side, nullptr);
    for (const char* button : {"FindColorRect", "FindBV"}) { // there is no word to find yet
        QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
        QApplication::sendEvent(&run.control<QWidget>(button), &enter);
        EXPECT_EQ(run.control<QWidget>(button).cursor().shape() == Qt::BitmapCursor, button[4] == 'C') << button;
    }
    for (const char* expected : {"", "banana"}) {
        run.search("banana");
        EXPECT_EQ(side->findChild<QLineEdit*>("FindEF")->text(), expected);
        side->findChild<QCheckBox*>("SyncronizeCB")->click();
    }
}

TEST(WindowsInFront, TakeOnlyTheCommandsOfTheApplication) {
    Started run({groupWithErrata(), fruitGroup("H", 1)});
    PageImageWindow* extra = openErratum(run);
    ASSERT_NE(extra, nullptr);
    run.click("SubWinBV");
    const Qt::KeyboardModifiers commandShift = Qt::ControlModifier | Qt::ShiftModifier;
    auto* side = openWindow<SubWindow>();
    QApplication::setActiveWindow(side);
    QTest::keyClick(side->findChild<QLineEdit*>("FindEF"), Qt::Key_Right, commandShift);
    EXPECT_EQ(run.tabs().Value(), 0) << "tabs are for the window in front";
    run.key(Qt::Key_Right, commandShift);
    EXPECT_EQ(run.tabs().Value(), 1);
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
    run.host.folders = {fruit("New").writeTo(run.files.path() / "elsewhere"), run.groupFolder(group)};
    run.app().commands().run("SpecialInstall", 0);
    run.host.messages.clear(); // "This dictionary is a new comer."
}

TEST(AnInstall, ResetsEveryWindowAndFreesItsGroup) {
    Started run({fruitGroup("G", 2)});
    run.search("banana");
    run.files.write("DictionaryFolder/G/DictionaryPreferences.txt", "G\t0\t\nB\t2\nA\t0\n");
    install(run, "G");
    EXPECT_EQ(run.tabs().caption(0), "");
    EXPECT_EQ(run.control<PopupMenu>("SelectDicFolPU").ListIndex(), -1);
    run.pick("G");
    EXPECT_EQ(run.tabs().caption(0), "B") << "the window wrote its old order over the file";
    EXPECT_EQ(run.tabs().PanelCount(), 3);
}

/// The order editor for the first window; null if it does not open.
EditDicDlg* editOrder(Started& run) {
    run.app().windows().ActiveMainWin = &run.window();
    run.app().commands().run("SpecialChangedictionaryorder", 0);
    return openWindow<EditDicDlg>();
}

TEST(OrderEditor, SavesTheNewOrderWhateverHappensToItsWindow) {
    const auto makeWindow = [](Started& run) { run.app().mMakeNewMainWin(); };
    const struct {
        const char* reason;
        std::function<void(Started&)> before;
        std::size_t shown; ///< dictionaries in the window after saving
    } cases[] = {
        {"nothing", [](Started&) {}, 2},
        {"an install", [](Started& run) { install(run, "H"); }, 2},
        {"another window took the group", [&](Started& run) { install(run, "H"), makeWindow(run), run.pick("G", 1); },
         0},
        {"its window was closed", [&](Started& run) { run.window().close(), makeWindow(run), run.pick("H", 1); }, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        Started run({fruitGroup("G", 2).preferences("Old\t0\t\nA\t2\nB\t2\n"), fruitGroup("H", 1)});
        EXPECT_EQ(editOrder(run), nullptr) << "no group is picked";
        run.pick("G");
        const EditDicDlg* editor = editOrder(run);
        ASSERT_NE(editor, nullptr);
        editor->findChild<QLineEdit*>("EF")->setText("New");
        c.before(run);
        QApplication::processEvents();
        ASSERT_EQ(openWindow<EditDicDlg>(), editor);
        QTest::mouseClick(editor->findChild<QPushButton*>("SaveBT"), Qt::LeftButton);
        QApplication::processEvents();
        EXPECT_EQ(openWindow<EditDicDlg>(), nullptr);
        EXPECT_EQ(run.files.read("DictionaryFolder/G/DictionaryPreferences.txt"), "New\nA\nB\n");
        EXPECT_EQ(run.window().group().pDictionaryItem.size(), c.shown);
        EXPECT_EQ(run.window().title() == "New", c.shown != 0);
        for (int window = 0; window < run.app().windows().count(); ++window) {
            run.pick("H", window);
            run.window(window).close();
        }
        EXPECT_EQ(run.files.read("DictionaryFolder/H/DictionaryPreferences.txt"), "New\nA\nB\n") << "into any group";
    }
}

} // namespace
} // namespace velmarin::test
