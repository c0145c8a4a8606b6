#include "Started.h"

#include "controls/BevelButton.h"
#include "controls/TabPanel.h"

#include <QApplication>
#include <QCheckBox>
#include <QScreen>

#include <gtest/gtest.h>

namespace velmarin::test {
namespace {

const char* const kPreferences = "DictionaryFolder/G/DictionaryPreferences.txt";

TEST(GroupPreferences, OrderModesAndTheCheckBoxComeBackAtTheNextStart) {
    Started run({fruitGroup("G", 3).preferences("Fruit\t1\t\nC\t1\nA\t0\nGone\t2\n")});
    EXPECT_TRUE(run.control<QCheckBox>("SeparatelyCB")->isChecked());
    EXPECT_EQ(run.control<TabPanel>("TB")->caption(0), "C");
    EXPECT_EQ(run.control<BevelButton>("BVimage.1")->wholeText(), "Adjust by height");
    EXPECT_EQ(run.read(kPreferences), "Fruit\t1\t\nC\t1\nA\t0\nGone\t2\n") << "reading writes nothing";
    run.choose("BVimage.1", 1);
    run.control<QCheckBox>("SeparatelyCB")->click();
    EXPECT_EQ(run.read(kPreferences), "Fruit\t0\t\nC\t1\nA\t1\nB\t2\n");
    run.choose("BVimage.2", 0);
    run.quit();
    EXPECT_EQ(run.read(kPreferences), "Fruit\t0\t\nC\t1\nA\t1\nB\t0\n");
}

TEST(GroupPreferences, TheLinesOfTheOrderEditorAreCarriedOverToEveryGroup) {
    Started run({fruitGroup("G", 2), fruitGroup("H", 1)});
    run.pick("G");
    run.app().module().pNewDicPref = {"New name", "B", "A"};
    run.pick("H");
    run.quit();
    EXPECT_EQ(run.read(kPreferences), "New name\nB\nA\n");
    EXPECT_EQ(run.read("DictionaryFolder/H/DictionaryPreferences.txt"), "New name\nB\nA\n");
}

TEST(Placement, OnlyTheFirstWindowSavesItAndEveryWindowTakesIt) {
    Started run;
    run.group(fruitGroup("G", 1)).group(fruitGroup("H", 1));
    run.files().write("Preferences/MainWindow", "40\t50\t700\t500\t\n");
    run.start();
    EXPECT_EQ(run.window().centralWidget()->size(), QSize(700, 500));
    run.window().resize(run.window().width() + 20, run.window().height());
    QApplication::processEvents();
    EXPECT_EQ(run.read("Preferences/MainWindow"), "40\t50\t720\t500\t\n");
    run.app().mMakeNewMainWin();
    EXPECT_EQ(run.window(1).centralWidget()->size(), QSize(720, 500));
    run.window(1).resize(400, 400);
    QApplication::processEvents();
    EXPECT_EQ(run.read("Preferences/MainWindow"), "40\t50\t720\t500\t\n");
}

TEST(Placement, AMoveWhileAGroupLoadsIsSavedAndStays) {
    Started run;
    run.group(fruitGroup("G", 3)).group(fruitGroup("H", 1));
    run.files().write("Preferences/MainWindow", "40\t50\t700\t500\t\n");
    run.start();
    run.host.onYield = [&run] { run.window().move(60, 70); };
    run.pick("G");
    EXPECT_EQ(run.window().pos(), QPoint(60, 70));
    EXPECT_EQ(run.read("Preferences/MainWindow"), "60\t70\t700\t500\t\n");
}

TEST(Placement, OneThatNoScreenShowsIsBroughtInAndStaysSavedUntilTheUserMovesTheWindow) {
    Started run;
    run.group(fruitGroup("G", 1)).group(fruitGroup("H", 1));
    const std::string saved = "3000\t1500\t700\t500\t\n";
    run.files().write("Preferences/MainWindow", saved);
    run.start();
    const QRect screen = run.window().screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(run.window().frameGeometry()));
    EXPECT_EQ(run.window().centralWidget()->size(), QSize(700, 500));
    run.pick("G");
    EXPECT_EQ(run.read("Preferences/MainWindow"), saved);
    const QPoint broughtTo = run.window().pos();
    run.window().move(20, 30);
    EXPECT_EQ(run.read("Preferences/MainWindow"), "20\t30\t700\t500\t\n");
    run.window().move(broughtTo);
    EXPECT_NE(run.read("Preferences/MainWindow"), "20\t30\t700\t500\t\n") << "a move back is a move too";
}

TEST(Placement, WithoutASavedOneTheWindowFitsItsScreen) {
    Started run({fruitGroup("G", 1)});
    EXPECT_TRUE(run.window().screen()->availableGeometry().contains(run.window().frameGeometry()));
    EXPECT_FALSE(std::filesystem::exists(run.folder() / "Preferences/MainWindow"));
}

TEST(Placement, AFolderThatCannotBeWrittenIsToldOnceAndOnlyAfterAMove) {
    Started run;
    run.group(fruitGroup("G", 1)).group(fruitGroup("H", 1));
    run.files().write("Preferences", "a file in place of the folder");
    run.start();
    EXPECT_EQ(run.host.messages.size(), 0U) << "nothing of the user's has been lost";
    for (int i = 1; i <= 5; ++i) {
        run.window().resize(600 + i, 500);
        QApplication::processEvents();
    }
    EXPECT_EQ(run.host.messages.size(), 1U);
    run.pick("G");
    EXPECT_EQ(run.window().width(), 605) << "what could not be saved lasts for the run";
}

TEST(Placement, ALineOfZerosGivesTheSmallestWindowAndNotNone) {
    Started run;
    run.group(fruitGroup("G", 1));
    run.files().write("Preferences/MainWindow", "\n");
    run.start();
    EXPECT_EQ(run.window().centralWidget()->height(), 64);
    EXPECT_GE(run.window().centralWidget()->width(), 64);
}

TEST(GroupPreferences, GroupsThatCannotBeWrittenAreToldOnceForAllAndTheProgramStaysUp) {
    Started run({fruitGroup("G", 1), fruitGroup("H", 1)});
    for (const char* group : {"G", "H"}) {
        run.pick(group);
        std::filesystem::create_directory(run.groupFolder(group) / "DictionaryPreferences.txt");
        run.control<QCheckBox>("SeparatelyCB")->click();
        run.control<QCheckBox>("SeparatelyCB")->click();
        ASSERT_EQ(run.host.messages.size(), 1U) << group;
    }
    EXPECT_NE(run.host.messages[0].find("G/DictionaryPreferences.txt"), std::string::npos);
    run.search("banana");
    EXPECT_EQ(run.imageName(0), "2.bmp");
    for (const char* group : {"G", "H"})
        std::filesystem::remove(run.groupFolder(group) / "DictionaryPreferences.txt");
    run.pick("G");
    run.control<QCheckBox>("SeparatelyCB")->click();
    std::filesystem::remove(run.groupFolder("G") / "DictionaryPreferences.txt");
    std::filesystem::create_directory(run.groupFolder("G") / "DictionaryPreferences.txt");
    run.control<QCheckBox>("SeparatelyCB")->click();
    EXPECT_EQ(run.host.messages.size(), 2U) << "it could be written in between";
}

TEST(SideWindowPreferences, GroupsThatCannotBeWrittenAreToldOnceForAll) {
    Started run;
    run.group(fruitGroup("G", 1)).group(fruitGroup("H", 1)).start();
    for (const char* group : {"G", "H", "G"}) {
        run.pick(group);
        std::filesystem::create_directory(run.groupFolder(group) / "Subwindow");
        run.click("SubWinBV");
        run.control<QCheckBox>("DontClearCB")->click();
        run.click("SubWinBV");
        ASSERT_EQ(run.host.messages.size(), 1U) << group;
    }
    EXPECT_NE(run.host.messages[0].find("G/Subwindow"), std::string::npos);
}

} // namespace
} // namespace velmarin::test
