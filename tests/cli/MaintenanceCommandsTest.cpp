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
    const char* install = "install new/Webster DF/A";
    expectRun({"new", install, "installed\tDF/A/Webster\n"});
    EXPECT_EQ(treeOf(folder_.at("DF/A/Webster")), treeOf(folder_.at("new/Webster")));
    expectRun({"identical", install, "already there\tDF/A/Webster\n"});
    folder_.write("new/Webster/ind", "newer index");
    expectRun({"different", install, "", "DF/A/Webster: an item of that name is already there", 2});
    EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "new index");
}

TEST_F(MaintenanceCommands, UpdateReplacesMembersAndSavesTheOldOnes) {
    const char* update = "update new/Webster DF Backups";
    expectRun({"no group has it", update, "", "", 1});
    folder_.write("DF/A/Webster/ind", "old index");
    expectRun({"no backup folder", {"update", "new/Webster", "DF", ""}, "", "an empty name is not a folder", 2});
    expectRun({"update", update,
               "added\tDF/A/Webster/FW\nsaved\tBackups/Webster-Oldversion-0/ind\nreplaced\tDF/A/Webster/ind\n"});
    EXPECT_EQ(folder_.read("DF/A/Webster/ind"), "new index");
    EXPECT_EQ(folder_.read("Backups/Webster-Oldversion-0/ind"), "old index");
}

TEST_F(MaintenanceCommands, ExportReplacesOnRequestAndContinuesAfterFailures) {
    folder_.write("DF/A/NoMark/ind", "");
    folder_.write("DF/A/notes", "");
    expectRun({"many", "export DF/A/Latin DF/A/NoMark link Out",
               "exported\tOut/Latin\nskipped\tDF/A/NoMark\nexported\tOut/Webster\n", "", 1});
    expectRun({"identical, with another file", "export DF/A/notes DF/A/Latin Out", "already there\tOut/Latin\n",
               "DF/A/notes: not a dictionary, passed over"});
    expectRun({"only another file", "export DF/A/notes Out", "", "DF/A/notes: This is not a Dictionary !", 2});
    folder_.write("DF/A/Latin/ind", "more");
    expectRun({"different", "export DF/A/Latin Out", "skipped\tDF/A/Latin\n", "", 1});
    expectRun({"replaced", "export --replace DF/A/Latin Out", "exported\tOut/Latin\n"});
    EXPECT_EQ(folder_.read("Out/Latin/ind"), "more");
    folder_.fifo("new/Webster/pipe");
    expectRun({"failures", "export --replace missing DF new/Webster DF/A/Latin Out",
               "exported\tOut/Webster\nexported\tOut/Latin\n",
               "missing: No such file or directory\nDF: not a dictionary, passed over\n"
               "new/Webster/pipe: it is neither a file nor a folder, and was left out",
               2});
}

TEST_F(MaintenanceCommands, WrongFoldersAreReportedAndNothingIsDone) {
    const Tree before = treeOf(folder_.path());
    const std::pair<Arguments, std::string> cases[] = {
        {"install Out DF/A", "Out: This is not a Dictionary !"},
        {"install link DF/A", "link: This is not a Dictionary !"},
        {"install new/Webster DF/B", "DF/B: No such file or directory"},
        {"install new/Webster new/Webster", "new/Webster: a folder cannot be copied into itself"},
        {"update new/Webster nothing Out", "nothing: No such file or directory"},
        {"export new/Webster new/Webster/FW", "new/Webster/FW: Not a directory"},
        {{"export", "", "Out"}, "an empty name is not a folder"}};
    for (const auto& [arguments, message] : cases) {
        expectRun({message.c_str(), arguments, "", message, 2});
        EXPECT_EQ(treeOf(folder_.path()), before) << message;
    }
}

} // namespace
} // namespace velmarin::test
