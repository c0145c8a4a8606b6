#include "Started.h"

#include "controls/BevelButton.h"
#include "controls/PopupMenu.h"
#include "controls/QtText.h"
#include "controls/TabPanel.h"
#include "shell/GroupPicker.h"
#include "shell/SideLink.h"
#include "view/SmartCanvas.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace velmarin::test {
namespace {

TEST(GroupPick, ASingleGroupIsPickedAtOnceAndWorks) {
    Started run({fruitGroup("Only", 2).preferences("Fruit\t0\t\n")});
    EXPECT_EQ(run.control<PopupMenu>("SelectDicFolPU")->ListIndex(), 0);
    EXPECT_EQ(run.window().title(), "Fruit version 1.0");
    EXPECT_EQ(run.host.messages, std::vector<std::string>{});
    run.search("banana");
    EXPECT_EQ(run.imageName(0), "2.bmp");
    EXPECT_EQ(run.imageName(1), "2.bmp");
}

TEST(GroupPick, OfTwoGroupsNoneIsPickedAndTheSearchIsOff) {
    Started run({fruitGroup("One", 1), fruitGroup("Two", 1)});
    EXPECT_EQ(run.control<PopupMenu>("SelectDicFolPU")->ListIndex(), -1);
    EXPECT_FALSE(run.control<QPushButton>("OKBT")->isEnabled());
    EXPECT_EQ(run.control<QLineEdit>("SearchEF")->text(), "To execute a search, select a dictionary.");
    EXPECT_EQ(run.window().title(), "VELMARIN version 1.0");
    run.pick("Two");
    EXPECT_TRUE(run.control<QPushButton>("OKBT")->isEnabled());
    EXPECT_EQ(run.control<QLineEdit>("SearchEF")->text(), "");
}

TEST(GroupPick, AGroupShownInAWindowIsRefusedAndTheMenuGoesBack) {
    Started run({fruitGroup("One", 1).preferences("First\t0\t\n"), fruitGroup("Two", 2).preferences("Second\t0\t\n")});
    run.pick("One");
    run.app().mMakeNewMainWin();
    ASSERT_EQ(run.app().MainWinList().size(), 2U);
    run.pick("One", 1);
    EXPECT_EQ(run.control<PopupMenu>("SelectDicFolPU", 1)->ListIndex(), -1);
    EXPECT_TRUE(run.window(1).group().pDictionaryItem.empty());
    run.pick("Two", 1);
    EXPECT_EQ(run.window(1).title(), "Second");
    run.pick("One", 1);
    EXPECT_EQ(run.window(1).title(), "Second");
    EXPECT_EQ(run.control<PopupMenu>("SelectDicFolPU", 1)->ListIndex(), 1);
    EXPECT_EQ(run.app().module.pSelectedDicTag,
              "You cant select following items which are already selected: \rOne\rTwo");
    run.pick("Two", 1);
    EXPECT_EQ(run.window(1).title(), "Second");
    EXPECT_EQ(run.host.messages, std::vector<std::string>{});
}

TEST(GroupPick, OneFolderIsShownOnceWhateverRowOrLinkItIsPickedBy) {
    Started run({fruitGroup("Fruit", 1), fruitGroup("Wood", 1)});
    std::filesystem::create_directory_symlink("Fruit", run.groupFolder("Link"));
    std::filesystem::create_directory_symlink(run.groupFolder("Fruit"), run.groupFolder("Another link"));
    run.pick("Wood");
    run.pick("Fruit");
    run.app().mMakeNewMainWin();
    run.pick("Wood", 1);
    const int row = run.control<PopupMenu>("SelectDicFolPU", 1)->ListIndex();
    for (const char* refused : {"Link", "Another link", "Fruit"}) {
        run.pick(refused, 1);
        EXPECT_EQ(run.window(1).group().pDictionaryGroupFolder.Name(), "Wood") << refused;
        EXPECT_EQ(run.control<PopupMenu>("SelectDicFolPU", 1)->ListIndex(), row) << refused;
    }
    EXPECT_EQ(run.host.messages, std::vector<std::string>{});
}

TEST(GroupPick, WindowsAreMadeUntilGroupsRunOutAndThenTheVersionIsAppended) {
    Started run({fruitGroup("One", 1), fruitGroup("Two", 1)});
    run.app().mMakeNewMainWin();
    run.app().mMakeNewMainWin();
    EXPECT_EQ(run.app().MainWinList().size(), 2U);
    EXPECT_EQ(run.window().title(), "VELMARIN version 1.0 version 1.0");
    const QString about = run.control<QLabel>("AboutST")->text();
    EXPECT_EQ(about.count("This Velmarin is at the version 1.0"), 2);
    EXPECT_EQ(run.window(1).pMyIndex, 1);
    EXPECT_FALSE(run.window(1).pDefaultMainWindow);
}

TEST(GroupPick, AClosedWindowCountsButItsGroupIsFreeFromTheNextPick) {
    Started run({fruitGroup("One", 1), fruitGroup("Two", 1), fruitGroup("Three", 1)});
    run.pick("One");
    run.app().mMakeNewMainWin();
    run.pick("Two", 1);
    run.window(1).close();
    EXPECT_EQ(run.app().MainWinList().size(), 2U);
    run.pick("Two");
    EXPECT_EQ(run.control<PopupMenu>("SelectDicFolPU")->ListIndex(), 0) << "still marked as in use";
    run.pick("Three");
    run.pick("Two");
    EXPECT_EQ(run.window().group().pDictionaryGroupFolder.Name(), "Two");
}

TEST(GroupPick, AWindowThatComesBackIsWithoutAGroupAndMayTakeItsOldOneAgain) {
    Started run({fruitGroup("One", 1).preferences("First\t1\t\n"), fruitGroup("Two", 1)});
    run.pick("Two");
    run.app().mMakeNewMainWin();
    run.pick("One", 1);
    run.window(1).close();
    run.app().handle("WinItem", 1);
    EXPECT_TRUE(run.window(1).isVisible());
    EXPECT_EQ(run.window(1).title(), "VELMARIN");
    EXPECT_EQ(run.app().winItems()[1], "Default Window");
    EXPECT_EQ(run.control<QLineEdit>("SearchEF", 1)->text(), "To execute a search, select a dictionary.");
    run.pick("One", 1);
    EXPECT_EQ(run.window(1).title(), "First");
    EXPECT_EQ(run.read("DictionaryFolder/One/DictionaryPreferences.txt"), "First\t1\t\nA\t2\n")
        << "the check box was put back into the file";
}

TEST(GroupPick, AGroupThatCannotBeReadLeavesAWindowWithoutAGroup) {
    Started run({fruitGroup("Good", 2), fruitGroup("Bad", 1), fruitGroup("Gone", 1)});
    const auto unreadable = run.groupFolder("Bad") / "DictionaryPreferences.txt";
    std::filesystem::create_directory(unreadable);
    std::filesystem::remove_all(run.groupFolder("Gone"));
    run.files().write("DictionaryFolder/Gone", "a file, which cannot be listed");
    const std::vector<std::string> told{"Error: ReadDictionaryFolder 0"};
    for (const char* group : {"Bad", "Gone"}) {
        run.pick("Good");
        run.search("banana");
        run.pick(group);
        EXPECT_EQ(std::exchange(run.host.messages, {}), told) << group;
        EXPECT_EQ(run.control<PopupMenu>("SelectDicFolPU")->ListIndex(), -1) << "no name is shown without pages";
        EXPECT_EQ(run.control<TabPanel>("TB")->PanelCount(), 1);
        EXPECT_EQ(run.imageName(0), "");
        EXPECT_EQ(run.window().title(), "VELMARIN");
        EXPECT_EQ(run.app().winItems()[0], "Default Window");
        EXPECT_NE(run.control<QLabel>("NoticeST")->text().indexOf(group), -1) << "the reason is shown";
        for (const char* control : {"OKBT", "SeparatelyCB", "SubWinBV"})
            EXPECT_FALSE(run.control<QWidget>(control)->isEnabled()) << control;
        run.window().sideLink().SubWinBV()->setChecked(true);
        emit run.window().sideLink().SubWinBV()->clicked();
        EXPECT_FALSE(run.window().sideLink().SubWinBV()->isChecked()) << "there is no side window without a group";
    }
    std::filesystem::remove(unreadable);
    run.pick("Bad");
    EXPECT_EQ(run.host.messages, std::vector<std::string>{});
    EXPECT_FALSE(run.control<QLabel>("NoticeST")->isVisible());
    run.search("banana");
    EXPECT_EQ(run.imageName(0), "2.bmp");
}

TEST(GroupPick, AGroupWithoutDictionariesShowsOneEmptyTab) {
    Started run({fruitGroup("Full", 3)});
    run.quit();
    run.files().write("DictionaryFolder/Empty/readme", "nothing");
    run.start();
    run.pick("Full");
    run.search("apple");
    run.pick("Empty");
    EXPECT_EQ(run.control<TabPanel>("TB")->PanelCount(), 1);
    EXPECT_FALSE(run.control<BevelButton>("BVnext.0")->isEnabled());
    EXPECT_EQ(run.imageName(0), "");
    EXPECT_FALSE(run.control<SmartCanvas>("MainCanvas.0")->hasImage());
    run.search("apple");
    EXPECT_EQ(run.host.messages, std::vector<std::string>{});
}

TEST(GroupPick, TabsUpTo21AndAListFrom22) {
    Started run(
        {GroupBuilder("T21").manyDictionaries(21, {"a", "b"}), GroupBuilder("T22").manyDictionaries(22, {"a", "b"})});
    run.pick("T21");
    EXPECT_EQ(run.control<TabPanel>("TB")->PanelCount(), 21);
    EXPECT_FALSE(run.control<QWidget>("LB")->isVisible());
    run.pick("T22");
    EXPECT_EQ(run.control<TabPanel>("TB")->PanelCount(), 1);
    EXPECT_TRUE(run.control<QWidget>("LB")->isVisible());
    for (const auto& item : run.window().group().pDictionaryItem)
        EXPECT_EQ(item->ImageMode, 3);
}

TEST(GroupPick, AListedDictionaryThatDoesNotLoadKeepsItsTabAndItsNeighboursWork) {
    Started run(
        {GroupBuilder("G")
             .dictionary(fruit("A").without("mImg").without("txt"))
             .dictionary(fruit("B"))
             .dictionary(DictionaryBuilder("NotListed").member("FW", "").without("ind").without("txt").without("mImg"))
             .preferences("G\t0\t\nA\t2\nGone\t1\nB\t0\n"),
         fruitGroup("Other", 1)});
    run.pick("G");
    auto* tabs = run.control<TabPanel>("TB");
    ASSERT_EQ(tabs->PanelCount(), 2);
    EXPECT_EQ(tabs->caption(0), "A");
    EXPECT_FALSE(run.control<BevelButton>("BVnext.0")->isEnabled());
    EXPECT_EQ(run.host.messages, std::vector<std::string>{"Error: ReadDictionaryFolder 0"});
    run.search("cherry");
    EXPECT_EQ(run.imageName(1), "3.bmp");
    run.pick("Other");
    EXPECT_EQ(run.read("DictionaryFolder/G/DictionaryPreferences.txt"), "G\t0\t\nA\t2\nB\t0\n");
}

TEST(GroupPick, APickDuringASearchWaitsForItsEnd) {
    Started run({GroupBuilder("Many").manyDictionaries(30, {"apple", "banana", "zzz"}), fruitGroup("Few", 1)});
    run.pick("Many");
    bool picked = false;
    run.host.onYield = [&] {
        if (!std::exchange(picked, true)) {
            run.pick("Few");
            EXPECT_EQ(run.window().group().pDictionaryItem.size(), 30U) << "the group changed during the search";
        }
    };
    run.search("apple");
    QTest::qWait(0);
    QApplication::processEvents();
    EXPECT_TRUE(picked);
    EXPECT_EQ(run.window().group().pDictionaryItem.size(), 1U);
}

} // namespace
} // namespace velmarin::test
