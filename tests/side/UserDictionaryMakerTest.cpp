#include "side/UserDictionaryMaker.h"

#include "SideFixture.h"

#include <QTest>

#include <filesystem>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::SideFixture;
using MakingAUserDictionary = test::SideTest;

constexpr const char* kMade =
    "A user dictionary was ceated. Put the dictionary or its alias in the UserDictionary found "
    "in the DictionaryFolder.";

TEST(UserDictionaryDialog, TellsAndAsks) {
    const struct {
        const char* name;
        const char* source; ///< what the data file holds; nothing: the dialogue is cancelled
        bool folderChosen;
        std::vector<std::string> messages;
        bool launched;
    } cases[] = {{"NoData", nullptr, false, {"Select a data file for a Dictionary. "}, false},
                 {"NoFolder",
                  "a\tb\n",
                  false,
                  {"Select a data file for a Dictionary. ", "Create a folder as new Dictionary."},
                  false},
                 {"Made",
                  "a\tb\n",
                  true,
                  {"Select a data file for a Dictionary. ", "Create a folder as new Dictionary.", kMade},
                  true},
                 {"NotUtf8",
                  "\xE9\tb\nc\xE9\n",
                  true,
                  {"Select a data file for a Dictionary. ", "Create a folder as new Dictionary.",
                   "2 lines of the data are not in UTF-8. They were taken over byte for byte, but some of their "
                   "letters cannot be shown.",
                   kMade},
                  true}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        SideFixture fixture;
        fixture.open();
        const test::TempFolder work;
        fs::create_directory(work.path() / "New");
        if (each.source != nullptr)
            fixture.host.files.push_back(work.write("data.txt", each.source));
        if (each.folderChosen)
            fixture.host.folders.push_back(work.path() / "New");
        QTest::mouseClick(&fixture.control<QWidget>("UserDicBT"), Qt::LeftButton);
        EXPECT_EQ(fixture.host.messages, each.messages);
        EXPECT_EQ(!fixture.host.launched.empty(), each.launched);
        EXPECT_EQ(fs::exists(work.path() / "New/Index.txt"), each.launched);
        EXPECT_TRUE(fs::is_directory(fixture.groupFolder.path() / "UserDictionaries"));
    }
}

TEST_F(MakingAUserDictionary, ShowsItsProgressInTheMainWindow) {
    open();
    const test::TempFolder work;
    host.files.push_back(work.write("data.txt", "b\na\n"));
    host.folders.push_back(work.path());
    bool busyThroughout = true;
    host.onYield = [&] { busyThroughout = busyThroughout && busy.busy(); };
    main.log.clear();
    side().mMakeUserDictionary();
    const std::vector<std::string> start(main.log.begin(), main.log.begin() + 5);
    EXPECT_EQ(start,
              (std::vector<std::string>{"text I'm counting the lines of the data.", "bar",
                                        "text I'm making the word for sorting and searching.", "max 2", "value 0"}));
    EXPECT_EQ(*(main.log.end() - 2), "text ");
    EXPECT_EQ(main.log.back(), "full");
    EXPECT_TRUE(busyThroughout);
    EXPECT_GT(host.yields, 5);
    EXPECT_FALSE(busy.busy());
}

TEST_F(MakingAUserDictionary, MakesANewFolderWhereTheOthersAre) {
    open();
    const test::TempFolder work;
    const fs::path others = groupFolder.path() / "UserDictionaries";
    host.files.push_back(work.write("data.txt", "a\tb\n"));
    host.folders.push_back(others / "Mine");
    side().mMakeUserDictionary();
    EXPECT_EQ(host.openedAt, std::vector<fs::path>{others});
    EXPECT_EQ(host.folderChoices, std::vector{Host::FolderChoice::MayBeNew});
    EXPECT_TRUE(fs::exists(others / "Mine/Index.txt"));

    host.files.push_back(work.path() / "none.txt");
    host.folders.push_back(others / "Failed");
    side().mMakeUserDictionary();
    EXPECT_FALSE(fs::exists(others / "Failed")) << "it would be listed as a dictionary";
}

TEST_F(MakingAUserDictionary, KeepsAnEarlierOneOnTheDesktop) {
    const test::TempFolder work;
    work.write("Mine/Text.txt", "precious");
    host.files.push_back(work.write("data.txt", "a\tb\n"));
    host.folders.push_back(work.path() / "Mine");
    makeUserDictionaryByDialogue(FolderItem(groupFolder.path()), main, host, busy, FolderItem(work.path() / "Desktop"));
    EXPECT_EQ(host.messages.back(), kMade);
    EXPECT_EQ(work.read("Mine/Text.txt"), "a\tb\n");
    EXPECT_EQ(work.read("Desktop/Mine-Oldversion-0/Text.txt"), "precious");
}

TEST_F(MakingAUserDictionary, ThatFailsSaysWhyAndLeavesTheSearchFieldEmpty) {
    open();
    const test::TempFolder work;
    host.files.push_back(work.path() / "none.txt");
    host.folders.push_back(work.path());
    side().mMakeUserDictionary();
    ASSERT_EQ(host.messages.size(), 3U);
    EXPECT_NE(host.messages.back().find("none.txt"), std::string::npos);
    ASSERT_GE(main.log.size(), 2U);
    EXPECT_EQ(*(main.log.end() - 2), "text ");
    EXPECT_EQ(main.log.back(), "no bar");
    EXPECT_TRUE(host.launched.empty());
}

} // namespace
} // namespace velmarin
