#include "Started.h"

#include "controls/PopupMenu.h"
#include "controls/TabPanel.h"
#include "platform/QtText.h"
#include "shell/StartRequest.h"
#include "view/SmartCanvas.h"

#include <QCheckBox>
#include <QScreen>

#include <algorithm>

namespace velmarin::test {
namespace {

std::string shownGroup(Started& run, int window = 0) {
    MainWindow& shown = run.window(window);
    const auto& groups = run.control<PopupMenu>("SelectDicFolPU", window);
    const std::string folder = shown.hasGroup() ? shown.group().pDictionaryGroupFolder.Name() : "";
    EXPECT_EQ(groups.ListIndex() < 0 ? "" : groups.List(groups.ListIndex()), folder);
    return folder;
}

TEST(Windows, ASingleGroupIsPickedAtOnceAndAnUnknownOneChangesNothing) {
    for (const bool single : {true, false}) {
        SCOPED_TRACE(single);
        std::vector<GroupBuilder> groups(single ? 1 : 2, fruitGroup("H", 1));
        groups[0] = fruitGroup("G", 2).preferences("Fruit\t0\t\n");
        Started run(groups);
        EXPECT_EQ(shownGroup(run), single ? "G" : "");
        EXPECT_EQ(run.control<QWidget>("OKBT").isEnabled(), single);
        EXPECT_EQ(run.field().text(), single ? "" : "To execute a search, select a dictionary.");
        EXPECT_EQ(run.window().title(), single ? "Fruit version 1.0" : "VELMARIN version 1.0");
        EXPECT_TRUE(run.window().screen()->availableGeometry().contains(run.window().frameGeometry()));
        EXPECT_FALSE(std::filesystem::exists(run.files.path() / "Preferences/MainWindow"));
        run.pick("G");
        run.search("banana");
        EXPECT_EQ(run.imageName(1), "2.bmp");
        EXPECT_EQ(run.host.messages, std::vector<std::string>{});
        runStartRequest(run.window(), {.group = "Nonsense", .word = "date"});
        EXPECT_TRUE(run.label("NoticeST").isVisible());
        EXPECT_EQ(run.imageName(1), "2.bmp") << "the word was searched in another group";
        EXPECT_EQ(run.field().text(), "date");
        run.search("cherry");
        EXPECT_FALSE(run.label("NoticeST").isVisible());
        run.app().mMakeNewMainWin();
        run.app().mMakeNewMainWin();
        EXPECT_EQ(run.app().windows().winItems().size(), groups.size());
        EXPECT_EQ(run.window().title(), single ? "Fruit version 1.0 version 1.0 version 1.0" : "Fruit version 1.0");
        EXPECT_EQ(run.label("AboutST").text().count("This Velmarin is at the version 1.0"), single ? 3 : 2);
    }
}

TEST(Windows, NoGroupIsShownInTwo) {
    Started run({fruitGroup("One", 1), fruitGroup("Two", 1), fruitGroup("Three", 1)}, [](const TempFolder& files) {
        std::filesystem::create_directory_symlink("One", files.path() / "DictionaryFolder" / "Link");
    });
    run.pick("One");
    run.app().mMakeNewMainWin();
    const struct {
        int window;
        std::string pick;  ///< "close" and "show" do that
        const char* shown; ///< the group's folder
    } steps[] = {
        {1, "One", ""},     {1, "Link", ""},       {1, "Two", "Two"}, {1, "One", "Two"},
        {1, "Link", "Two"}, {1, "Two", "Two"},     {1, "close", ""}, // still in use until the next pick
        {0, "Two", "One"},  {0, "Three", "Three"}, {0, "Two", "Two"}, {1, "show", ""},
        {1, "Two", ""},     {1, "One", "One"},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(std::to_string(step.window) + " " + step.pick);
        if (step.pick == "close")
            run.window(step.window).close();
        else if (step.pick == "show")
            run.app().commands().run("WinItem", step.window);
        else
            run.pick(step.pick, step.window);
        EXPECT_EQ(shownGroup(run, step.window), step.shown);
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
        EXPECT_EQ(shownGroup(run), group == "Free" ? "Free" : "Few");
    }
}

TEST(Windows, WithoutGroupsTheToolTipOfThePopUpSaysWhereTheyBelong) {
    Started run;
    auto& groups = run.control<PopupMenu>("SelectDicFolPU");
    const QString path = toQ((run.files.path() / "DictionaryFolder").string());
    EXPECT_TRUE(groups.toolTip().startsWith("There are no dictionaries yet. A folder in " + path));
    std::filesystem::remove(run.files.path() / "DictionaryFolder");
    run.files.write("DictionaryFolder", "a file");
    emit groups.aboutToChoose();
    EXPECT_EQ(groups.toolTip(), "The folder of dictionaries could not be read: " + path);
}

TEST(Windows, AGroupThatCannotBeReadLeavesAWindowWithoutAGroup) {
    Started run({fruitGroup("Good", 2), fruitGroup("Gone", 1), GroupBuilder("Empty")});
    std::filesystem::remove_all(run.groupFolder("Gone"));
    run.files.write("DictionaryFolder/Gone", "a file, which cannot be listed");
    for (const std::string group : {"Gone", "Empty"}) {
        SCOPED_TRACE(group);
        const bool isRead = group == "Empty";
        run.pick("Good");
        run.search("banana");
        run.pick(group);
        EXPECT_EQ(shownGroup(run), isRead ? group : "");
        EXPECT_EQ(std::exchange(run.host.messages, {}).size(), isRead ? 0U : 1U);
        EXPECT_FALSE(run.canvas().hasImage());
        EXPECT_EQ(run.window().title(), isRead ? "" : "VELMARIN");
        EXPECT_EQ(run.app().windows().winItems()[0], isRead ? "" : "Default Window");
        EXPECT_EQ(run.label("NoticeST").text().contains(toQ(group)), !isRead) << "the reason is shown";
        for (const char* control : {"OKBT", "SeparatelyCB", "SubWinBV"})
            EXPECT_EQ(run.control<QWidget>(control).isEnabled(), isRead) << control;
    }
    run.pick("Good");
    EXPECT_EQ(run.host.messages, std::vector<std::string>{});
    EXPECT_FALSE(run.label("NoticeST").isVisible());
}

TEST(Windows, WhatCannotBeReadOfAGroupIsToldWithItsNameAndStays) {
    Started run(
        {fruitGroup("Good", 2).dictionary(fruit("Bad").without("ind").member("ind/x", "")), fruitGroup("Unread", 2)});
    run.files.write("DictionaryFolder/Good/DictionaryPreferences.txt", "Good\t0\t\nBad\t1\n");
    run.files.unreadable("DictionaryFolder/Unread/DictionaryPreferences.txt");
    run.pick("Good");
    EXPECT_EQ(run.host.messages, std::vector<std::string>{"Error: ReadDictionaryFolder 0"});
    EXPECT_NE(run.host.details[0].find("/Good/Bad/ind\" could not be read: Is a directory"), std::string::npos);
    EXPECT_NE(run.window().findChild<QTabBar*>()->tabToolTip(0).indexOf("/Good/Bad/ind"), -1);
    run.pick("Unread");
    EXPECT_EQ(run.host.details.size(), 2U);
    run.search("banana");
    EXPECT_TRUE(run.canvas().hasImage());
    run.pick("Good");
    EXPECT_TRUE(std::filesystem::is_symlink(run.groupFolder("Unread") / "DictionaryPreferences.txt"));
    EXPECT_EQ(std::ranges::count_if(run.host.messages, [](const auto& text) { return text.ends_with("not replaced"); }),
              1);
}

TEST(Windows, AnOpeningIsStoppedByEscapeOrTheCloseOfTheWindow) {
    Started run({fruitGroup("Few", 2), fruitGroup("Many", 30)});
    const auto preferences = run.groupFolder("Many") / "DictionaryPreferences.txt";
    for (const bool byKey : {true, false}) {
        run.pick("Few");
        bool stopped = false;
        run.host.onYield = [&] {
            if (std::exchange(stopped, true))
                return;
            if (byKey)
                QTest::keyClick(&run.window(), Qt::Key_Escape);
            else
                run.window().close();
        };
        run.pick("Many");
        QTest::qWait(0);
        EXPECT_EQ(shownGroup(run), "");
        EXPECT_EQ(run.window().isVisible(), byKey);
        EXPECT_EQ(run.label("NoticeST").isVisible(), byKey) << "it says why there is no group";
        EXPECT_EQ(run.host.messages, std::vector<std::string>{});
        EXPECT_FALSE(std::filesystem::exists(preferences));
        run.host.onYield = {};
    }
    run.window().bringToFront();
    run.pick("Many");
    EXPECT_EQ(shownGroup(run), "Many");
}

TEST(Windows, OrderFitsAndTheCheckBoxAreSavedAndAClosedWindowComesBackWithoutAGroup) {
    Started run({fruitGroup("G", 3).preferences("Fruit\t1\t\nC\t1\nA\t0\nGone\t2\n"), fruitGroup("H", 1)});
    const auto saved = [&run] { return run.files.read("DictionaryFolder/G/DictionaryPreferences.txt"); };
    auto& separately = run.control<QCheckBox>("SeparatelyCB");
    run.pick("G");
    EXPECT_TRUE(separately.isChecked());
    EXPECT_EQ(run.tabs().caption(0), "C");
    EXPECT_EQ(run.button("BVimage.1").wholeText(), "Adjust by height");
    EXPECT_EQ(saved(), "Fruit\t1\t\nC\t1\nA\t0\nGone\t2\n") << "reading writes nothing";
    run.choose("BVimage.1", 1);
    separately.click();
    EXPECT_EQ(saved(), "Fruit\t0\t\nC\t1\nA\t1\nB\t2\n");
    separately.click();
    run.choose("BVimage.2", 0);
    run.window().close();
    run.app().commands().run("WinItem", 0);
    EXPECT_TRUE(run.window().isVisible());
    EXPECT_EQ(run.window().title(), "VELMARIN");
    EXPECT_EQ(run.app().windows().winItems()[0], "Default Window");
    EXPECT_EQ(run.field().text(), "To execute a search, select a dictionary.");
    EXPECT_FALSE(separately.isChecked());
    EXPECT_EQ(saved(), "Fruit\t1\t\nC\t1\nA\t1\nB\t0\n") << "unchecking the box went to the file";
    run.pick("G");
    EXPECT_EQ(run.window().title(), "Fruit");
}

TEST(Windows, OnlyTheFirstSavesItsPlacementAndAllTakeIt) {
    Started run({fruitGroup("G", 3), fruitGroup("H", 1)},
                [](const TempFolder& files) { files.write("Preferences/MainWindow", "40\t50\t700\t500\t\n"); });
    const auto saved = [&run] { return run.files.read("Preferences/MainWindow"); };
    EXPECT_EQ(run.window().centralWidget()->size(), QSize(700, 500));
    run.window().resize(run.window().width() + 20, run.window().height());
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

TEST(StartRequest, AWordWithoutAGroupWaitsForAPickAndIsSearchedOnce) {
    const std::pair<const char*, const char*> cases[] = {
        {"", ""}, {"Nonsense", "There is no group called ‘Nonsense’"}, {"Bad", "DictionaryFolder/Bad"}};
    for (const auto& [group, reason] : cases) {
        SCOPED_TRACE(group);
        Started run({fruitGroup("Good", 2), fruitGroup("Bad", 1)});
        std::filesystem::remove_all(run.groupFolder("Bad"));
        run.files.write("DictionaryFolder/Bad", "a file, which cannot be listed");
        runStartRequest(run.window(), {.group = group, .word = "banana"});
        const QLabel& notice = run.label("NoticeST");
        EXPECT_TRUE(notice.isVisible());
        EXPECT_TRUE(notice.text().remove(u'\u200b').contains(reason)) << fromQ(notice.text());
        run.pick("Bad");
        EXPECT_TRUE(notice.text().contains("‘banana’")) << "it waits for a group that can be read";
        run.pick("Good");
        EXPECT_FALSE(notice.isVisible());
        EXPECT_EQ(run.imageName(), "2.bmp");
        run.pick("Bad");
        run.pick("Good");
        EXPECT_EQ(run.imageName(), "");
        runStartRequest(run.window(), {.group = "gOOD", .word = "cherry"});
        EXPECT_EQ(run.imageName(), "3.bmp");
        run.window().close();
        runStartRequest(run.window(), {.word = "banana"});
        run.window().show();
        run.window().close();
        run.app().commands().run("WinItem", 0);
        run.pick("Good");
        EXPECT_EQ(run.imageName(), "") << "a closed window forgets the word";
    }
}

} // namespace
} // namespace velmarin::test
