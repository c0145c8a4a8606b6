#include "CliTest.h"

#include "support/Tree.h"

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

/// "install", "update" and "export".
class MaintenanceCommands : public CliTest {
  protected:
    MaintenanceCommands() {
        folder_.write("new/Webster/FW", "new");
        folder_.write("new/Webster/ind", "new index");
        folder_.write("DF/A/Latin/FW", "");
        folder_.link("link", "new/Webster");
        fs::create_directory(folder_.at("Out"));
    }
};

TEST_F(MaintenanceCommands, InstallNeverReplaces) {
    const std::vector<std::string> install = {"install", "new/Webster", "DF/A"};
    expectRun({"new", install, "installed\tDF/A/Webster\n"});
    EXPECT_EQ(treeOf(folder_.at("DF/A/Webster")), treeOf(folder_.at("new/Webster")));
    expectRun({"identical", install, "already there\tDF/A/Webster\n"});
    folder_.write("new/Webster/ind", "newer index");
    expectRun({"different", install, "", "DF/A/Webster: an item of that name is already there", 2});
    EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "new index");
}

TEST_F(MaintenanceCommands, UpdateReplacesMembersAndSavesTheOldOnes) {
    const std::vector<std::string> update = {"update", "new/Webster", "DF", "Backups"};
    expectRun({"no group has it", update, "", "", 1});
    folder_.write("DF/A/Webster/ind", "old index");
    expectRun({"no backup folder", {"update", "new/Webster", "DF", ""}, "", "an empty name is not a folder", 2});
    expectRun({"update", update,
               "added\tDF/A/Webster/FW\nsaved\tBackups/Webster-Oldversion-0/ind\nreplaced\tDF/A/Webster/ind\n"});
    EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "new index");
    EXPECT_EQ(folder_.read("Backups/Webster-Oldversion-0/ind"), "old index");
}

TEST_F(MaintenanceCommands, ExportReplacesOnRequestAndContinuesAfterFailures) {
    folder_.write("DF/A/No mark/ind", "");
    folder_.write("DF/A/DictionaryPreferences.txt", "");
    const auto changed = [this] { folder_.write("DF/A/Latin/ind", "more"); };
    const CliCase cases[] = {{"many",
                              {"export", "DF/A/Latin", "DF/A/No mark", "link", "Out"},
                              "exported\tOut/Latin\nskipped\tDF/A/No mark\nexported\tOut/Webster\n",
                              "",
                              1},
                             {"identical", {"export", "DF/A/Latin", "Out"}, "already there\tOut/Latin\n"},
                             {"different", {"export", "DF/A/Latin", "Out"}, "skipped\tDF/A/Latin\n", "", 1},
                             {"replaced", {"export", "--replace", "DF/A/Latin", "Out"}, "exported\tOut/Latin\n"},
                             {"other files are passed over",
                              {"export", "DF/A/DictionaryPreferences.txt", "DF/A/Latin", "Out"},
                              "already there\tOut/Latin\n",
                              "DF/A/DictionaryPreferences.txt: not a dictionary, passed over"},
                             {"nothing but other files",
                              {"export", "DF/A/DictionaryPreferences.txt", "Out"},
                              "",
                              "DF/A/DictionaryPreferences.txt: This is not a Dictionary !",
                              2}};
    for (const CliCase& each : cases) {
        if (each.reason == std::string("different"))
            changed();
        expectRun(each);
    }
    EXPECT_EQ(folder_.read("Out/Latin/ind"), "more");
    folder_.fifo("new/Webster/pipe");
    expectRun({"failures",
               {"export", "--replace", "missing", "DF", "new/Webster", "DF/A/Latin", "Out"},
               "exported\tOut/Webster\nexported\tOut/Latin\n",
               "missing: No such file or directory\nDF: not a dictionary, passed over\n"
               "new/Webster/pipe: it is neither a file nor a folder, and was left out",
               2});
}

TEST_F(MaintenanceCommands, WrongFoldersAreReportedAndNothingIsDone) {
    const Tree before = treeOf(folder_.path());
    const CliCase cases[] = {
        {"", {"install", "Out", "DF/A"}, "", "Out: This is not a Dictionary !", 2},
        {"", {"install", "link", "DF/A"}, "", "link: This is not a Dictionary !", 2},
        {"", {"install", "new/Webster", "DF/B"}, "", "DF/B: No such file or directory", 2},
        {"", {"install", "new/Webster", "new/Webster"}, "", "new/Webster: a folder cannot be copied into itself", 2},
        {"", {"update", "new/Webster", "nothing", "Out"}, "", "nothing: No such file or directory", 2},
        {"", {"export", "new/Webster", "new/Webster/FW"}, "", "new/Webster/FW: Not a directory", 2},
        {"", {"export", "", "Out"}, "", "an empty name is not a folder", 2}};
    for (const CliCase& each : cases) {
        expectRun(each);
        EXPECT_EQ(treeOf(folder_.path()), before) << each.err;
    }
}

} // namespace
} // namespace velmarin::test
