#include "side/UserDictionaryMaker.h"

#include "SideFixture.h"

#include <QTest>

#include <filesystem>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::SideFixture;

constexpr const char* kMade =
    "A user dictionary was ceated. Put the dictionary or its alias in the UserDictionary found "
    "in the DictionaryFolder.";

struct DialogueCase {
    const char* name;
    const char* source; ///< what the data file holds; nothing: the dialogue is cancelled
    bool folderChosen;
    std::vector<std::string> messages;
    bool launched;
};

class MakingAUserDictionary : public testing::TestWithParam<DialogueCase> {};

TEST_P(MakingAUserDictionary, TellsAndAsks) {
    SideFixture fixture;
    fixture.open();
    const test::TempFolder work;
    fs::create_directory(work.path() / "New");
    if (GetParam().source != nullptr)
        fixture.host.files.push_back(work.write("data.txt", GetParam().source));
    if (GetParam().folderChosen)
        fixture.host.folders.push_back(work.path() / "New");
    QTest::mouseClick(&fixture.control<QWidget>("UserDicBT"), Qt::LeftButton);
    EXPECT_EQ(fixture.host.messages, GetParam().messages);
    EXPECT_EQ(!fixture.host.launched.empty(), GetParam().launched);
    EXPECT_EQ(fs::exists(work.path() / "New/Index.txt"), GetParam().launched);
    EXPECT_TRUE(fs::is_directory(fixture.groupFolder.path() / "UserDictionaries"));
}

INSTANTIATE_TEST_SUITE_P(
    Courses, MakingAUserDictionary,
    testing::Values(DialogueCase{"NoData", nullptr, false, {"Select a data file for a Dictionary. "}, false},
                    DialogueCase{"NoFolder",
                                 "a\tb\n",
                                 false,
                                 {"Select a data file for a Dictionary. ", "Create a folder as new Dictionary."},
                                 false},
                    DialogueCase{"Made",
                                 "a\tb\n",
                                 true,
                                 {"Select a data file for a Dictionary. ", "Create a folder as new Dictionary.", kMade},
                                 true},
                    DialogueCase{
                        "NotUtf8",
                        "\xE9\tb\nc\xE9\n",
                        true,
                        {"Select a data file for a Dictionary. ", "Create a folder as new Dictionary.",
                         "2 lines of the data are not in UTF-8. They were taken over byte for byte, but some of their "
                         "letters cannot be shown.",
                         kMade},
                        true}),
    [](const auto& tested) { return tested.param.name; });

TEST(MakingAUserDictionary, ShowsItsProgressInTheMainWindow) {
    SideFixture fixture;
    fixture.open();
    const test::TempFolder work;
    fixture.host.files.push_back(work.write("data.txt", "b\na\n"));
    fixture.host.folders.push_back(work.path());
    bool busyThroughout = true;
    fixture.host.onYield = [&] { busyThroughout = busyThroughout && fixture.busy.busy(); };
    fixture.main.log.clear();
    fixture.side().mMakeUserDictionary();
    EXPECT_EQ(fixture.main.log,
              (std::vector<std::string>{"text I'm counting the lines of the data.", "bar",
                                        "text I'm making the word for sorting and searching.", "max 2", "value 0",
                                        "value 2", "text I'm making the index data.", "max 1", "value 0",
                                        "text I'm sorting the index data. The progress bar looks frozen.", "value 1",
                                        "text Now I'm writing data.", "value 0", "value 1", "text ", "full"}));
    EXPECT_TRUE(busyThroughout);
    EXPECT_GT(fixture.host.yields, 5);
    EXPECT_FALSE(fixture.busy.busy());
}

TEST(MakingAUserDictionary, MakesANewFolderWhereTheOthersAre) {
    SideFixture fixture;
    fixture.open();
    const test::TempFolder work;
    const fs::path others = fixture.groupFolder.path() / "UserDictionaries";
    fixture.host.files.push_back(work.write("data.txt", "a\tb\n"));
    fixture.host.folders.push_back(others / "Mine");
    fixture.side().mMakeUserDictionary();
    EXPECT_EQ(fixture.host.openedAt, std::vector<fs::path>{others});
    EXPECT_EQ(fixture.host.folderChoices, std::vector{Host::FolderChoice::MayBeNew});
    EXPECT_TRUE(fs::exists(others / "Mine/Index.txt"));

    fixture.host.files.push_back(work.path() / "none.txt");
    fixture.host.folders.push_back(others / "Failed");
    fixture.side().mMakeUserDictionary();
    EXPECT_FALSE(fs::exists(others / "Failed")) << "it would be listed as a dictionary";
}

TEST(MakingAUserDictionary, KeepsAnEarlierOneOnTheDesktop) {
    SideFixture fixture;
    const test::TempFolder work;
    work.write("Mine/Text.txt", "precious");
    fixture.host.files.push_back(work.write("data.txt", "a\tb\n"));
    fixture.host.folders.push_back(work.path() / "Mine");
    makeUserDictionaryByDialogue(FolderItem(fixture.groupFolder.path()), fixture.main, fixture.host, fixture.busy,
                                 FolderItem(work.path() / "Desktop"));
    EXPECT_EQ(fixture.host.messages.back(), kMade);
    EXPECT_EQ(work.read("Mine/Text.txt"), "a\tb\n");
    EXPECT_EQ(work.read("Desktop/Mine-Oldversion-0/Text.txt"), "precious");
}

TEST(MakingAUserDictionary, ThatFailsSaysWhyAndLeavesTheSearchFieldEmpty) {
    SideFixture fixture;
    fixture.open();
    const test::TempFolder work;
    fixture.host.files.push_back(work.path() / "none.txt");
    fixture.host.folders.push_back(work.path());
    fixture.side().mMakeUserDictionary();
    ASSERT_EQ(fixture.host.messages.size(), 3U);
    EXPECT_NE(fixture.host.messages.back().find("none.txt"), std::string::npos);
    ASSERT_GE(fixture.main.log.size(), 2U);
    EXPECT_EQ(*(fixture.main.log.end() - 2), "text ");
    EXPECT_EQ(fixture.main.log.back(), "no bar");
    EXPECT_TRUE(fixture.host.launched.empty());
}

} // namespace
} // namespace velmarin
