#include "Started.h"

#include "controls/PopupMenu.h"
#include "controls/QtText.h"
#include "shell/PictureRun.h"

#include <QLabel>
#include <QLineEdit>

#include <gtest/gtest.h>

namespace velmarin::test {
namespace {

struct WaitingCase {
    const char* reason;
    StartRequest request;
    std::vector<std::string> said;
};

class WordWithoutAGroup : public testing::TestWithParam<WaitingCase> {};

TEST_P(WordWithoutAGroup, WaitsInTheWindowAndIsSearchedAtThePick) {
    Started run;
    run.group(fruitGroup("Good", 2)).group(fruitGroup("Bad", 1)).start();
    std::filesystem::create_directory(run.groupFolder("Bad") / "DictionaryPreferences.txt");
    runStartRequest(run.app(), GetParam().request);
    auto* notice = run.control<QLabel>("NoticeST");
    EXPECT_TRUE(notice->isVisible());
    for (const std::string& part : GetParam().said)
        EXPECT_NE(fromQ(notice->text()).find(part), std::string::npos) << fromQ(notice->text());
    run.pick("Bad");
    EXPECT_NE(fromQ(notice->text()).find("‘banana’"), std::string::npos) << "it waits for a group that can be read";
    run.pick("Good");
    EXPECT_FALSE(notice->isVisible());
    EXPECT_EQ(run.imageName(0), "2.bmp");
    EXPECT_EQ(run.control<QLineEdit>("SearchEF")->text(), "banana");
    run.search("cherry");
    run.pick("Bad");
    run.pick("Good");
    EXPECT_EQ(run.imageName(0), "") << "it is searched once";
}

INSTANTIATE_TEST_SUITE_P(Requests, WordWithoutAGroup,
                         testing::Values(WaitingCase{"NoGroupIsNamed", {.word = "banana"}, {"‘banana’"}},
                                         WaitingCase{"TheGroupIsUnknown",
                                                     {.group = "Nonsense", .word = "banana"},
                                                     {"There is no group called ‘Nonsense’", "‘banana’"}},
                                         WaitingCase{"TheGroupCannotBeRead",
                                                     {.group = "Bad", .word = "banana"},
                                                     {"DictionaryPreferences.txt", "‘banana’"}}),
                         [](const auto& info) { return info.param.reason; });

TEST(StartRequest, AnUnknownGroupBesideTheOnlyOneIsSaidAndTheWordIsNotSearchedInIt) {
    Started run;
    run.group(fruitGroup("Only", 1)).start();
    runStartRequest(run.app(), {.group = "Nonsense", .word = "banana"});
    EXPECT_TRUE(run.control<QLabel>("NoticeST")->isVisible());
    EXPECT_EQ(run.imageName(0), "");
    EXPECT_EQ(run.control<QLineEdit>("SearchEF")->text(), "banana");
    run.search("cherry");
    EXPECT_FALSE(run.control<QLabel>("NoticeST")->isVisible());
}

TEST(StartRequest, AClosedWindowForgetsTheWord) {
    Started run;
    run.group(fruitGroup("One", 1)).group(fruitGroup("Two", 1)).start();
    runStartRequest(run.app(), {.word = "banana"});
    run.window().close();
    run.app().handle("WinItem", 0);
    run.pick("One");
    EXPECT_EQ(run.imageName(0), "");
}

TEST(NoGroups, TheHelpTagOfThePopUpTellsWhereTheyBelong) {
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
