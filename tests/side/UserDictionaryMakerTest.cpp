#include "side/UserDictionaryMaker.h"

#include "ModelFixture.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

namespace fs = std::filesystem;
using test::ModelFixture;

class UserDictionaryDialog : public testing::Test, public ModelFixture {
  protected:
    void run() { open().UserDicBT_Action(); }
    test::TempFolder work;
};

constexpr const char* kAskForData = "Select a data file for a Dictionary. ";
constexpr const char* kAskForFolder = "Create a folder as new Dictionary.";
constexpr const char* kMade = "A user dictionary was ceated. Put the dictionary or its alias in the UserDictionary "
                              "found in the DictionaryFolder.";

TEST(MakingAUserDictionary, TellsAndAsks) {
    const struct {
        const char* name;
        const char* source; ///< the data file; nullptr: the dialog is cancelled
        bool folderChosen;
        std::vector<std::string> messages;
        bool launched;
    } cases[] = {{"NoData", nullptr, false, {kAskForData}, false},
                 {"NoFolder", "a\tb\n", false, {kAskForData, kAskForFolder}, false},
                 {"Made", "a\tb\n", true, {kAskForData, kAskForFolder, kMade}, true},
                 {"LinesNotUtf8",
                  "\xE9\tb\nc\xE9\n",
                  true,
                  {kAskForData, kAskForFolder,
                   "2 lines of the data are not in UTF-8. They were copied byte for byte, but some of their "
                   "letters cannot be shown.",
                   kMade},
                  true}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        ModelFixture fixture;
        const test::TempFolder work;
        if (each.source != nullptr)
            fixture.host.files.push_back(work.write("data.txt", each.source));
        if (each.folderChosen)
            fixture.host.folders.push_back(work.path() / "New");
        fixture.open().UserDicBT_Action();
        EXPECT_EQ(fixture.host.messages, each.messages);
        EXPECT_EQ(!fixture.host.launched.empty(), each.launched);
        EXPECT_EQ(fs::exists(work.path() / "New/Index.txt"), each.launched);
        EXPECT_TRUE(fs::is_directory(fixture.groupFolder.path() / "UserDictionaries"));
    }
}

TEST_F(UserDictionaryDialog, WaitsForWhatRunsAndShowsItsProgressInTheMainWindow) {
    host.files.push_back(work.write("data.txt", "b\na\n"));
    work.write("Mine/Text.txt", "precious");
    host.folders.push_back(work.path() / "Mine");
    bool busyThroughout = true;
    host.onYield = [&] { busyThroughout = busyThroughout && busy.busy(); };
    {
        const Busy guard(busy);
        run();
        EXPECT_TRUE(main.log.empty());
    }
    runPosted();
    ASSERT_GE(main.log.size(), 5U);
    EXPECT_EQ(std::vector<std::string>(main.log.begin(), main.log.begin() + 5),
              (std::vector<std::string>{"text I'm counting the lines of the data.", "bar",
                                        "text I'm making the word for sorting and searching.", "max 2", "value 0"}));
    EXPECT_EQ(*(main.log.end() - 2), "text ");
    EXPECT_EQ(main.log.back(), "full");
    EXPECT_TRUE(busyThroughout);
    EXPECT_GT(host.yields, 5);
    EXPECT_EQ(work.read("Mine/Text.txt"), "b\na\n");
    EXPECT_EQ(desktop.read("Mine-Oldversion-0/Text.txt"), "precious");
    EXPECT_FALSE(busy.busy());
}

TEST_F(UserDictionaryDialog, MakesANewFolderAmongTheOthersAndRemovesItAfterAFailure) {
    const fs::path others = groupFolder.path() / "UserDictionaries";
    host.files.push_back(work.write("data.txt", "a\tb\n"));
    host.folders.push_back(others / "Mine");
    run();
    EXPECT_EQ(host.openedAt, std::vector<fs::path>{others});
    EXPECT_EQ(host.folderChoices, std::vector{Host::FolderChoice::MayBeNew});
    EXPECT_TRUE(fs::exists(others / "Mine/Index.txt"));

    host.files.push_back(work.path() / "none.txt");
    host.folders.push_back(others / "Failed");
    host.launched.clear();
    run();
    EXPECT_FALSE(fs::exists(others / "Failed")) << "it would be listed as a dictionary";
    EXPECT_NE(host.messages.back().find("none.txt"), std::string::npos);
    EXPECT_EQ(*(main.log.end() - 2), "text ");
    EXPECT_EQ(main.log.back(), "no bar");
    EXPECT_TRUE(host.launched.empty());
}

} // namespace
} // namespace velmarin
