// install, update and export as velmarin-cli gives them.

#include "RunProgram.h"
#include "Trees.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

class MaintenanceCommands : public ::testing::Test {
  protected:
    MaintenanceCommands() {
        folder_.write("new/Webster/FW", "new");
        folder_.write("new/Webster/ind", "new index");
        fs::create_directories(at("DF/A"));
        fs::create_directories(at("Out"));
    }

    std::string at(const std::string& name) const { return folder_.path() / name; }

    /// The status and, on lines of their own, what was written, with the temporary folder's path left out.
    std::string run(std::vector<std::string> words) const {
        words.insert(words.begin(), VELMARIN_CLI);
        const ProgramRun ended = runProgram(words, folder_.path() / "output");
        std::string text = std::to_string(ended.status) + "\n" + textOf(folder_.path() / "output");
        const std::string prefix = folder_.path().native() + "/";
        for (std::size_t i = text.find(prefix); i != std::string::npos; i = text.find(prefix))
            text.erase(i, prefix.size());
        return text;
    }

    TempFolder folder_;
};

TEST_F(MaintenanceCommands, InstallPutsANewDictionaryIntoAGroup) {
    EXPECT_EQ(run({"install", at("new/Webster"), at("DF/A")}), "0\ninstalled\tDF/A/Webster\n");
    EXPECT_EQ(treeOf(at("DF/A/Webster")), treeOf(at("new/Webster")));
    EXPECT_EQ(run({"install", at("new/Webster"), at("DF/A")}), "0\nalready there\tDF/A/Webster\n");
    folder_.write("new/Webster/ind", "newer index");
    EXPECT_EQ(run({"install", at("new/Webster"), at("DF/A")}),
              "2\nvelmarin-cli: DF/A/Webster: an item of that name stands there already\n");
    EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "new index");
}

TEST_F(MaintenanceCommands, UpdateReplacesMembersAndSavesTheOldOnes) {
    EXPECT_EQ(run({"update", at("new/Webster"), at("DF"), at("Backups")}), "1\n") << "no group holds it";
    folder_.write("DF/A/Webster/ind", "old index");
    EXPECT_EQ(run({"update", at("new/Webster"), at("DF"), at("Backups")}),
              "0\nadded\tDF/A/Webster/FW\nsaved\tBackups/Webster-Oldversion-0/ind\nreplaced\tDF/A/Webster/ind\n");
    EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "new index");
    EXPECT_EQ(folder_.read("Backups/Webster-Oldversion-0/ind"), "old index");
}

TEST_F(MaintenanceCommands, ExportCopiesManyAndReplacesOnlyWhenToldTo) {
    folder_.write("DF/A/Latin/FW", "");
    folder_.write("DF/A/No mark/ind", "");
    makeLink(at("link"), at("new/Webster"));
    const std::vector<std::string> all{"export", at("DF/A/Latin"), at("DF/A/No mark"), at("link"), at("Out")};
    EXPECT_EQ(run(all), "1\nexported\tOut/Latin\nskipped\tDF/A/No mark\nexported\tOut/Webster\n");
    EXPECT_EQ(run({"export", at("DF/A/Latin"), at("Out")}), "0\nalready there\tOut/Latin\n");
    folder_.write("DF/A/Latin/ind", "more");
    EXPECT_EQ(run({"export", at("DF/A/Latin"), at("Out")}), "1\nskipped\tDF/A/Latin\n");
    EXPECT_EQ(run({"export", "--replace", at("DF/A/Latin"), at("Out")}), "0\nexported\tOut/Latin\n");
    EXPECT_EQ(folder_.read("Out/Latin/ind"), "more");
}

TEST_F(MaintenanceCommands, ExportPassesOverOtherFilesUnlessNothingElseIsNamed) {
    folder_.write("DF/A/DictionaryPreferences.txt", "");
    folder_.write("DF/A/Latin/FW", "");
    EXPECT_EQ(run({"export", at("DF/A/DictionaryPreferences.txt"), at("DF/A/Latin"), at("Out")}),
              "0\nvelmarin-cli: DF/A/DictionaryPreferences.txt: not a dictionary, passed over\nexported\tOut/Latin\n");
    EXPECT_EQ(run({"export", at("DF/A/DictionaryPreferences.txt"), at("Out")}),
              "2\nvelmarin-cli: DF/A/DictionaryPreferences.txt: This is not a Dictionary !\n");
}

TEST_F(MaintenanceCommands, OneThatFailsStopsNoOther) {
    makeFifo(at("new/Webster/pipe"));
    folder_.write("DF/A/Latin/FW", "");
    EXPECT_EQ(run({"export", at("missing"), at("DF"), at("new/Webster"), at("DF/A/Latin"), at("Out")}),
              "2\nvelmarin-cli: missing: No such file or directory\n"
              "velmarin-cli: DF: not a dictionary, passed over\n"
              "velmarin-cli: new/Webster/pipe: it is neither a file nor a folder, and was left out\n"
              "exported\tOut/Webster\nexported\tOut/Latin\n");
}

TEST_F(MaintenanceCommands, WrongFoldersAreReportedAndNothingIsDone) {
    makeLink(at("link"), at("new/Webster"));
    const Tree before = treeOf(at("DF"));
    const struct {
        std::vector<std::string> words;
        const char* message;
    } cases[] = {{{"install", at("Out"), at("DF/A")}, "Out: This is not a Dictionary !"},
                 {{"install", at("link"), at("DF/A")}, "link: This is not a Dictionary !"},
                 {{"install", at("new/Webster"), at("DF/B")}, "DF/B: No such file or directory"},
                 {{"install", at("new/Webster"), at("new/Webster")}, "a folder cannot be copied into itself"},
                 {{"update", at("new/Webster"), at("nothing"), at("Out")}, "nothing: No such file or directory"},
                 {{"export", at("new/Webster"), at("new/Webster/FW")}, "FW: Not a directory"},
                 {{"export", "", at("Out")}, "an empty name is not a folder"},
                 {{"export", at("Out")}, "--help"},
                 {{"install", at("new/Webster")}, "--help"}};
    for (const auto& each : cases) {
        const std::string said = run(each.words);
        EXPECT_TRUE(said.starts_with("2\nvelmarin-cli: ")) << said;
        EXPECT_NE(said.find(each.message), std::string::npos) << said;
        EXPECT_EQ(treeOf(at("DF")), before) << said;
    }
}

} // namespace
} // namespace velmarin::test
