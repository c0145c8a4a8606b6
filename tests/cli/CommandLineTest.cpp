#include "CliTest.h"

#include "support/DictionaryBuilder.h"

#include <unistd.h>

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

class CommandLine : public CliTest {
  protected:
    CommandLine() { GroupBuilder("G").dictionary(DictionaryBuilder("D").entries({"a", "zz"})).writeTo(folder_.path()); }
};

TEST_F(CommandLine, EveryCommandExplainsItself) {
    for (const std::string command : {"groups", "dictionaries", "key", "search", "check", "install", "update", "export",
                                      "user-dictionary build", "user-dictionary search"}) {
        const std::string help = run((command + " --help").c_str()).out;
        for (const std::string& part :
             {"Usage: velmarin-cli " + command.substr(0, command.find(' ')) + " ", std::string("Exit status:")})
            EXPECT_NE(help.find(part), std::string::npos) << command << ": " << part;
    }
    EXPECT_NE(run("search --help").out.find("[OPTION...] GROUP [WORD...]\n"), std::string::npos);
}

TEST_F(CommandLine, WrongArgumentsAreReportedInOneLineAndChangeNothing) {
    folder_.write("file", "text");
    folder_.link("loop", "loop");
    const std::string noFolder = ": No such file or directory", help = " (see \"velmarin-cli ";
    expectRefusals(
        {{{}, "no command was given" + help + "--help\")"},
         {"serach G", "there is no command \"serach\"" + help + "--help\")"},
         {"--all", "A subcommand is required" + help + "--help\")"},
         {"key -x", "The following argument was not expected: -x" + help + "key --help\")"},
         {"key --spanish --ijuv a", "--spanish excludes --ijuv" + help + "key --help\")"},
         {"search --front -1 G a", "--front: \"-1\" is not a tab number" + help + "search --help\")"},
         {"search --front 1234567890 G", "--front: \"1234567890\" is not a tab number" + help + "search --help\")"},
         {"search --front 1 G a", "--front 1: the group has 1 dictionaries, counted from 0"},
         {"search", "GROUP is required" + help + "search --help\")"},
         {{"search", "", "a"}, "an empty name is not a folder"},
         {"dictionaries file", "file: Not a directory"},
         {"dictionaries loop", "loop: Too many levels of symbolic links"},
         {"search G/D a", "G/D: this is a dictionary; give the folder that holds it, its group"},
         {"groups none", "none" + noFolder},
         {"check .", ".: neither a dictionary nor a group that holds one"},
         {{"groups", "a\nb"}, "a␊b" + noFolder}});
}

TEST_F(CommandLine, ReadingCommandsWriteNothing) {
    fs::remove(folder_.at("G/D/mImg/ImageIndex"));
    const Tree before = treeOf(folder_.path());
    for (const char* arguments : {"search G a", "search --json G a", "dictionaries G", "check G"})
        EXPECT_EQ(run(arguments).status, 0);
    EXPECT_EQ(treeOf(folder_.path()), before);
}

/// "G/closed" may not be read, and "listed" may not be entered.
TEST_F(CommandLine, FolderWithoutPermissionIsNamed) {
    if (::geteuid() == 0)
        words_ = {"setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", VELMARIN_CLI};
    fs::permissions(folder_.path(), fs::perms{0711});
    DictionaryBuilder("closed").entries({"a", "zz"}).writeTo(folder_.at("G"));
    fs::create_directory(folder_.at("listed"));
    if (run("--version").status != 0)
        GTEST_SKIP() << "the program is where only root can start it";
    fs::permissions(folder_.at("G/closed"), fs::perms::none);
    fs::permissions(folder_.at("listed"), fs::perms{0444});
    const std::string closed = "The folder \"G/closed\" could not be read";
    const std::pair<Arguments, std::string> rows[] = {
        {"groups G/closed", "G/closed"},  {"groups listed", "listed"}, {"dictionaries listed", "listed"},
        {"dictionaries G", closed},       {"search G a", closed},      {"check listed", "listed"},
        {"check G/closed", "G/closed"},   {"check G", "G/closed"},     {"export listed G", "listed"},
        {"export G/closed G", "G/closed"}};
    for (const auto& [arguments, named] : rows) {
        const ProgramRun found = run(arguments);
        EXPECT_EQ(found.err, "velmarin-cli: " + named + ": Permission denied\n") << arguments[0];
        EXPECT_EQ(found.status, 2) << arguments[0];
    }
    for (const char* name : {"G/closed", "listed"})
        fs::permissions(folder_.at(name), fs::perms::owner_all);
}

TEST_F(CommandLine, FailedWriteIsReportedOnce) {
    std::string input;
    while (input.size() < 1'000'000)
        input += "a word on a line\n";
    for (const char* arguments : {"key a", "key", "--help", "search --help", "--version"}) {
        for (const auto& [out, reason] : {std::pair<std::string, std::string>{"/dev/full", "No space left on device"},
                                          {"&-", "Bad file descriptor"}}) {
            const ProgramRun failed = run(arguments, {.input = input, .out = out});
            EXPECT_EQ(failed.err, "velmarin-cli: standard output: " + reason + "\n") << arguments;
            EXPECT_EQ(failed.status, 2) << arguments;
        }
    }
    const ProgramRun silent = run("key", {.out = "&-"});
    EXPECT_EQ(silent.err, "");
    EXPECT_EQ(silent.status, 0);
}

} // namespace
} // namespace velmarin::test
