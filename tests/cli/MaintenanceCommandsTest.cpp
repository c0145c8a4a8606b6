#include "CliTest.h"

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

/// "install", "update" and "export".
class MaintenanceCommands : public CliTest {
  protected:
    MaintenanceCommands() {
        folder_.write("new/Webster/FW", "new");
        folder_.write("new/Webster/ind", "new index");
        folder_.write("new/Webster/mPimg/e", "extra page");
        folder_.write("DF/A/Latin/FW", "");
        folder_.link("link", "new/Webster");
        fs::create_directory(folder_.at("Out"));
    }
};

TEST_F(MaintenanceCommands, InstallNeverReplacesButUpdateDoes) {
    const char* install = "install new/Webster DF/A";
    const char* update = "update new/Webster DF Backups";
    expectRuns(
        {{update, "", "", 1}, {install, "installed\tDF/A/Webster\n"}, {install, "already there\tDF/A/Webster\n"}});
    folder_.write("new/Webster/ind", "newer index");
    fs::remove(folder_.at("DF/A/Webster/FW"));
    fs::remove_all(folder_.at("DF/A/Webster/mPimg"));
    expectRuns({{install, "", "DF/A/Webster: an item of that name is already there", 2},
                {{"update", "new/Webster", "DF", ""}, "", "an empty name is not a folder", 2},
                {update, "added\tDF/A/Webster/FW\nsaved\tBackups/Webster-Oldversion-0/ind\nreplaced\tDF/A/Webster/ind\n"
                         "added\tDF/A/Webster/mPimg\n"}});
    EXPECT_EQ(filesOf(folder_.at("DF/A/Webster")), "FW=new ind=newer index mPimg/e=extra page");
    EXPECT_EQ(filesOf(folder_.at("Backups")), "Webster-Oldversion-0/ind=new index");
}

TEST_F(MaintenanceCommands, ExportReplacesOnRequestAndContinuesAfterFailures) {
    folder_.write("DF/A/NoMark/ind", "");
    folder_.write("DF/A/notes", "");
    expectRuns({{"export DF/A/Latin DF/A/NoMark link Out",
                 "exported\tOut/Latin\nskipped\tDF/A/NoMark\nexported\tOut/Webster\n", "", 1},
                {"export DF/A/notes DF/A/Latin Out", "already there\tOut/Latin\n",
                 "DF/A/notes: not a dictionary, passed over"},
                {"export DF/A/notes Out", "", "DF/A/notes: This is not a Dictionary !", 2}});
    folder_.write("DF/A/Latin/ind", "more");
    folder_.fifo("new/Webster/pipe");
    expectRuns(
        {{"export DF/A/Latin Out", "skipped\tDF/A/Latin\n", "", 1},
         {"export --replace missing DF new/Webster DF/A/Latin Out", "exported\tOut/Webster\nexported\tOut/Latin\n",
          "missing: No such file or directory\nDF: not a dictionary, passed over\n"
          "new/Webster/pipe: it is neither a file nor a folder, and was left out",
          2}});
    EXPECT_EQ(folder_.read("Out/Latin/ind"), "more");
}

TEST_F(MaintenanceCommands, WrongFoldersAreReportedAndNothingIsDone) {
    expectRefusals({{"install Out DF/A", "Out: This is not a Dictionary !"},
                    {"install link DF/A", "link: This is not a Dictionary !"},
                    {"install new/Webster DF/B", "DF/B: No such file or directory"},
                    {"install new/Webster new/Webster", "new/Webster: a folder cannot be copied into itself"},
                    {"update new/Webster nothing Out", "nothing: No such file or directory"},
                    {"export new/Webster new/Webster/FW", "new/Webster/FW: Not a directory"},
                    {{"export", "", "Out"}, "an empty name is not a folder"}});
}

} // namespace
} // namespace velmarin::test
