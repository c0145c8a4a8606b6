#include "Started.h"

#include "controls/BevelButton.h"
#include "controls/PopupMenu.h"
#include "controls/TabPanel.h"
#include "platform/QtText.h"
#include "view/SmartCanvas.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace velmarin::test {
namespace {

const char* const kPreferences = "DictionaryFolder/G/DictionaryPreferences.txt";

TEST(Windows, ASingleGroupIsPickedAtOnceAndOfTwoNone) {
    for (const bool single : {true, false}) {
        SCOPED_TRACE(single);
        Started run;
        run.group(fruitGroup("G", 2).preferences("Fruit\t0\t\n"));
        if (!single)
            run.group(fruitGroup("H", 1));
        run.start();
        EXPECT_EQ(run.control<PopupMenu>("SelectDicFolPU")->ListIndex(), single ? 0 : -1);
        EXPECT_EQ(run.control<QPushButton>("OKBT")->isEnabled(), single);
        EXPECT_EQ(run.control<QLineEdit>("SearchEF")->text(),
                  single ? "" : "To execute a search, select a dictionary.");
        EXPECT_EQ(run.window().title(), single ? "Fruit version 1.0" : "VELMARIN version 1.0");
        EXPECT_TRUE(run.window().screen()->availableGeometry().contains(run.window().frameGeometry()));
        EXPECT_FALSE(std::filesystem::exists(run.folder() / "Preferences/MainWindow"));
        run.pick("G");
        run.search("banana");
        EXPECT_EQ(run.imageName(1), "2.bmp");
        EXPECT_EQ(run.host.messages, std::vector<std::string>{});
    }
}

TEST(Windows, NoGroupIsShownInTwo) {
    Started run;
    for (const char* group : {"One", "Two", "Three"})
        run.group(fruitGroup(group, 1));
    std::filesystem::create_directory_symlink("One", run.groupFolder("Link"));
    run.start();
    run.pick("One");
    run.app().mMakeNewMainWin();
    const struct {
        int window;
        const char* pick;  ///< "close" and "show" do that
        const char* shown; ///< the group's folder; empty for none
    } steps[] = {
        {1, "One", ""},     {1, "Link", ""},       {1, "Two", "Two"}, {1, "One", "Two"},
        {1, "Link", "Two"}, {1, "Two", "Two"},     {1, "close", ""}, // still in use until the next pick
        {0, "Two", "One"},  {0, "Three", "Three"}, {0, "Two", "Two"}, {1, "show", ""},
        {1, "Two", ""},     {1, "One", "One"},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(std::to_string(step.window) + " " + step.pick);
        MainWindow& window = run.window(step.window);
        if (step.pick == std::string("close"))
            window.close();
        else if (step.pick == std::string("show"))
            run.app().commands().run("WinItem", step.window);
        else
            run.pick(step.pick, step.window);
        const bool none = *step.shown == '\0';
        EXPECT_EQ(none ? "" : window.group().pDictionaryGroupFolder.Name(), step.shown);
        EXPECT_EQ(window.hasGroup(), !none);
        EXPECT_EQ(run.control<PopupMenu>("SelectDicFolPU", step.window)->ListIndex() < 0, none);
    }
    EXPECT_EQ(run.app().module().pSelectedDicTag,
              "You cant select following items which are already selected: \rOne\rTwo");
    EXPECT_EQ(run.host.messages, std::vector<std::string>{});
}

TEST(Windows, APickDuringASearchWaitsAndARefusedOneRestoresTheGroup) {
    Started run({fruitGroup("Few", 3), fruitGroup("Free", 1), fruitGroup("Used", 1)});
    run.pick("Few");
    run.app().mMakeNewMainWin();
    run.pick("Used", 1);
    for (const std::string group : {"Used", "Free"}) {
        bool picked = false;
        run.host.onYield = [&] {
            if (std::exchange(picked, true))
                return;
            run.pick(group);
            run.pick(group);
            EXPECT_EQ(run.window().group().pDictionaryGroupFolder.Name(), "Few") << "it changed during the search";
        };
        run.search("banana");
        QTest::qWait(0);
        const std::string expected = group == "Free" ? "Free" : "Few";
        EXPECT_EQ(run.window().group().pDictionaryGroupFolder.Name(), expected);
        const auto* groups = run.control<PopupMenu>("SelectDicFolPU");
        EXPECT_EQ(groups->List(groups->ListIndex()), expected);
    }
}

TEST(Windows, WithoutGroupsTheToolTipOfThePopUpSaysWhereTheyBelong) {
    Started run;
    run.start();
    auto* groups = run.control<PopupMenu>("SelectDicFolPU");
    const auto help = [groups] {
        emit groups->aboutToChoose();
        return fromQ(groups->toolTip());
    };
    EXPECT_NE(help().find("no dictionaries yet"), std::string::npos);
    EXPECT_NE(help().find((run.folder() / "DictionaryFolder").string()), std::string::npos);
    std::filesystem::remove(run.folder() / "DictionaryFolder");
    run.files().write("DictionaryFolder", "a file");
    EXPECT_NE(help().find("could not be read"), std::string::npos);
}

TEST(Windows, AreMadeUntilGroupsRunOutAndThenTheVersionIsAppended) {
    Started run({fruitGroup("One", 1), fruitGroup("Two", 1)});
    run.app().mMakeNewMainWin();
    run.app().mMakeNewMainWin();
    EXPECT_EQ(run.app().windows().count(), 2);
    EXPECT_EQ(run.app().windows().winItems().size(), 2U);
    EXPECT_EQ(run.window().title(), "VELMARIN version 1.0 version 1.0");
    EXPECT_EQ(run.control<QLabel>("AboutST")->text().count("This Velmarin is at the version 1.0"), 2);
}

TEST(Windows, OneThatComesBackAfterACloseHasNoGroup) {
    Started run({fruitGroup("G", 1).preferences("First\t1\t\n"), fruitGroup("H", 1)});
    run.pick("G");
    run.window().close();
    run.app().commands().run("WinItem", 0);
    EXPECT_TRUE(run.window().isVisible());
    EXPECT_EQ(run.window().title(), "VELMARIN");
    EXPECT_EQ(run.app().windows().winItems()[0], "Default Window");
    EXPECT_EQ(run.control<QLineEdit>("SearchEF")->text(), "To execute a search, select a dictionary.");
    EXPECT_FALSE(run.control<QCheckBox>("SeparatelyCB")->isChecked());
    EXPECT_EQ(run.read(kPreferences), "First\t1\t\nA\t2\n") << "unchecking the box went to the file";
    run.pick("G");
    EXPECT_EQ(run.window().title(), "First");
}

TEST(Windows, AGroupThatCannotBeReadLeavesAWindowWithoutAGroup) {
    Started run({fruitGroup("Good", 2), fruitGroup("Bad", 1), fruitGroup("Gone", 1), GroupBuilder("Empty")});
    const auto unreadable = run.groupFolder("Bad") / "DictionaryPreferences.txt";
    std::filesystem::create_directory(unreadable);
    std::filesystem::remove_all(run.groupFolder("Gone"));
    run.files().write("DictionaryFolder/Gone", "a file, which cannot be listed");
    for (const std::string group : {"Bad", "Gone", "Empty"}) {
        SCOPED_TRACE(group);
        const bool isRead = group == "Empty";
        run.pick("Good");
        run.search("banana");
        run.pick(group);
        EXPECT_EQ(std::exchange(run.host.messages, {}).size(), isRead ? 0U : 1U);
        EXPECT_EQ(run.control<PopupMenu>("SelectDicFolPU")->ListIndex() >= 0, isRead);
        EXPECT_EQ(run.control<TabPanel>("TB")->PanelCount(), 1);
        EXPECT_EQ(run.imageName(0), "");
        EXPECT_FALSE(run.control<SmartCanvas>("MainCanvas.0")->hasImage());
        EXPECT_EQ(run.window().title(), isRead ? "" : "VELMARIN");
        EXPECT_EQ(run.app().windows().winItems()[0], isRead ? "" : "Default Window");
        EXPECT_EQ(run.control<QLabel>("NoticeST")->text().contains(toQ(group)), !isRead) << "the reason is shown";
        for (const char* control : {"OKBT", "SeparatelyCB", "SubWinBV"})
            EXPECT_EQ(run.control<QWidget>(control)->isEnabled(), isRead) << control;
        auto* side = run.control<BevelButton>("SubWinBV");
        side->setChecked(true);
        emit side->clicked();
        EXPECT_EQ(side->isChecked(), isRead) << "there is no side window without a group";
    }
    std::filesystem::remove(unreadable);
    run.pick("Bad");
    EXPECT_EQ(run.host.messages, std::vector<std::string>{});
    EXPECT_FALSE(run.control<QLabel>("NoticeST")->isVisible());
}

TEST(Windows, OrderFitsAndTheCheckBoxComeBackAtTheNextStart) {
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

TEST(Windows, OnlyTheFirstSavesItsPlacementAndAllTakeIt) {
    Started run;
    run.group(fruitGroup("G", 3)).group(fruitGroup("H", 1));
    const auto saved = [&run] { return run.read("Preferences/MainWindow"); };
    run.files().write("Preferences/MainWindow", "40\t50\t700\t500\t\n");
    run.start();
    EXPECT_EQ(run.window().centralWidget()->size(), QSize(700, 500));
    run.window().resize(run.window().width() + 20, run.window().height());
    QApplication::processEvents();
    EXPECT_EQ(saved(), "40\t50\t720\t500\t\n");
    run.app().mMakeNewMainWin();
    EXPECT_EQ(run.window(1).centralWidget()->size(), QSize(720, 500));
    QApplication::setActiveWindow(&run.window(1));
    run.window(1).resize(400, 400);
    QApplication::processEvents();
    EXPECT_EQ(saved(), "40\t50\t720\t500\t\n");
    run.host.onYield = [&run] { run.window().move(60, 70); };
    run.pick("G");
    EXPECT_EQ(run.window().pos(), QPoint(60, 70)) << "a move while a group loads stays";
    EXPECT_EQ(saved(), "60\t70\t720\t500\t\n");
}

} // namespace
} // namespace velmarin::test
