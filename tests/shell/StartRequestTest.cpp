#include "Started.h"

#include "controls/PopupMenu.h"
#include "controls/QtText.h"
#include "shell/StartRequest.h"

#include <QLabel>
#include <QLineEdit>

#include <gtest/gtest.h>

namespace velmarin::test {
namespace {

TEST(WordWithoutAGroup, WaitsInTheWindowAndIsSearchedAtThePick) {
    const struct {
        const char* name;
        StartRequest request;
        std::string reason;
    } cases[] = {
        {"no group is named", {.word = "banana"}, ""},
        {"unknown group", {.group = "Nonsense", .word = "banana"}, "There is no group called ‘Nonsense’"},
        {"unreadable group", {.group = "Bad", .word = "banana"}, "DictionaryPreferences.txt"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Started run({fruitGroup("Good", 2), fruitGroup("Bad", 1)});
        std::filesystem::create_directory(run.groupFolder("Bad") / "DictionaryPreferences.txt");
        runStartRequest(run.window(), c.request);
        auto* notice = run.control<QLabel>("NoticeST");
        EXPECT_TRUE(notice->isVisible());
        EXPECT_NE(fromQ(notice->text()).find(c.reason), std::string::npos) << fromQ(notice->text());
        EXPECT_TRUE(notice->text().contains("‘banana’"));
        run.pick("Bad");
        EXPECT_TRUE(notice->text().contains("‘banana’")) << "it waits for a group that can be read";
        run.pick("Good");
        EXPECT_FALSE(notice->isVisible());
        EXPECT_EQ(run.imageName(0), "2.bmp");
        EXPECT_EQ(run.control<QLineEdit>("SearchEF")->text(), "banana");
        run.search("cherry");
        run.pick("Bad");
        run.pick("Good");
        EXPECT_EQ(run.imageName(0), "") << "it is searched once";
    }
}

TEST(StartRequest, AnUnknownGroupBesideTheOnlyOneIsSaidAndTheWordIsNotSearchedInIt) {
    Started run({fruitGroup("Only", 1)});
    runStartRequest(run.window(), {.group = "Nonsense", .word = "banana"});
    EXPECT_TRUE(run.control<QLabel>("NoticeST")->isVisible());
    EXPECT_EQ(run.imageName(0), "");
    EXPECT_EQ(run.control<QLineEdit>("SearchEF")->text(), "banana");
    run.search("cherry");
    EXPECT_FALSE(run.control<QLabel>("NoticeST")->isVisible());
}

TEST(StartRequest, AClosedWindowForgetsTheWord) {
    Started run({fruitGroup("One", 1), fruitGroup("Two", 1)});
    runStartRequest(run.window(), {.word = "banana"});
    run.window().close();
    run.app().commands().run("WinItem", 0);
    run.pick("One");
    EXPECT_EQ(run.imageName(0), "");
}

TEST(NoGroups, TheToolTipOfThePopUpSaysWhereTheyBelong) {
    Started run;
    run.start();
    auto* groups = run.control<PopupMenu>("SelectDicFolPU");
    EXPECT_EQ(groups->rowCount(), 0);
    emit groups->aboutToChoose();
    EXPECT_NE(fromQ(groups->toolTip()).find((run.folder() / "DictionaryFolder").string()), std::string::npos);
    EXPECT_EQ(run.host.messages, std::vector<std::string>{});
}

} // namespace
} // namespace velmarin::test
