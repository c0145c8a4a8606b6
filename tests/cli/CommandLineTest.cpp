#include "RunCli.h"

#include "support/DictionaryBuilder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;
using velmarin::test::CliPlace;
using velmarin::test::DictionaryBuilder;
using velmarin::test::GroupBuilder;
using velmarin::test::runCli;
using velmarin::test::TempFolder;

TEST(CommandLine, HelpOfEveryCommandTellsItsColumnsStatusesAndAnExample) {
    const auto whole = runCli({"--help"});
    EXPECT_EQ(whole.status, 0);
    for (const char* command : {"groups", "dictionaries", "key", "search", "check"}) {
        EXPECT_NE(whole.out.find(std::string("\n  ") + command + " "), std::string::npos) << command;
        const auto own = runCli({command, "--help"});
        EXPECT_EQ(own.status, 0);
        EXPECT_EQ(own.err, "");
        for (const char* part : {"Usage: velmarin-cli ", "Columns", "Exit status:", "Example"})
            EXPECT_NE(own.out.find(part), std::string::npos) << command << ": " << part;
    }
    EXPECT_NE(runCli({"search", "--help"}).out.find("[OPTION...] GROUP [WORD...]\n"), std::string::npos);
}

const struct {
    const char* reason;
    std::vector<std::string> arguments;
    std::string err;
} kWrong[] = {
    {"NoCommand", {}, "no command was given (see \"velmarin-cli --help\")"},
    {"NoSuchCommand", {"serach", "G"}, "there is no command \"serach\" (see \"velmarin-cli --help\")"},
    {"NoSuchOption", {"key", "-x"}, "The following argument was not expected: -x (see \"velmarin-cli key --help\")"},
    {"OrdersThatExclude",
     {"key", "--spanish", "--ijuv", "a"},
     "--spanish excludes --ijuv (see \"velmarin-cli key --help\")"},
    {"FrontIsNegative",
     {"search", "--front", "-1", "G", "a"},
     "--front: \"-1\" is not a tab number (see \"velmarin-cli search --help\")"},
    {"FrontBeyondTheTabs",
     {"search", "--front", "1", "G", "a"},
     "--front 1: the group has 1 dictionaries, counted from 0"},
    {"NoGroup", {"search"}, "GROUP is required (see \"velmarin-cli search --help\")"},
    {"EmptyGroup", {"search", "", "a"}, "an empty name is not a folder"},
    {"GroupIsMissing", {"search", "none", "a"}, "none: No such file or directory"},
    {"GroupIsAFile", {"dictionaries", "file"}, "file: Not a directory"},
    {"GroupIsAFifo", {"dictionaries", "fifo"}, "fifo: Not a directory"},
    {"GroupIsALoop", {"dictionaries", "loop"}, "loop: Too many levels of symbolic links"},
    {"GroupIsADictionary",
     {"search", "G/D", "a"},
     "G/D: this is a dictionary; give the folder that holds it, its group"},
    {"FolderIsMissing", {"groups", "none"}, "none: No such file or directory"},
    {"NothingToCheck", {"check", "."}, ".: neither a dictionary nor a group that holds one"},
    {"NameWithALineEnd", {"groups", "a\nb"}, "a␊b: No such file or directory"}};

/// The folder they run in: "G", a group with the dictionary "D"; a file; a link that leads to itself; a FIFO.
TEST(CommandLine, AWrongOneIsReportedInOneLineAndChangesNothing) {
    for (const auto& each : kWrong) {
        SCOPED_TRACE(each.reason);
        const TempFolder folder;
        GroupBuilder("G").dictionary(DictionaryBuilder("D").entries({"a", "zz"})).writeTo(folder.path());
        folder.write("file", "text");
        fs::create_symlink("loop", folder.path() / "loop");
        ASSERT_EQ(::mkfifo((folder.path() / "fifo").c_str(), 0600), 0);
        const auto itemsOf = [&] {
            std::set<fs::path> items;
            for (const auto& entry : fs::recursive_directory_iterator(folder.path()))
                items.insert(entry.path());
            return items;
        };
        const auto before = itemsOf();
        const auto run = runCli(each.arguments, {.folder = folder.path()});
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, "velmarin-cli: " + each.err + "\n");
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(itemsOf(), before);
    }
}

/// "G" is a group with a dictionary that may be read and "closed", one that may not; "listed" may not be entered.
TEST(CommandLine, FolderThatMayNotBeReadIsNamed) {
    const TempFolder folder;
    fs::permissions(folder.path(), fs::perms{0711});
    for (const char* name : {"D", "closed"})
        DictionaryBuilder(name).entries({"a", "zz"}).writeTo(folder.path() / "G");
    fs::create_directory(folder.path() / "listed");
    fs::permissions(folder.path() / "G/closed", fs::perms::none);
    fs::permissions(folder.path() / "listed", fs::perms{0444});
    CliPlace place = {.folder = folder.path()};
    place.withoutRights = true;
    if (runCli({"--version"}, place).status == 127)
        GTEST_SKIP() << "the program lies where only root can start it";
    struct Row {
        std::vector<std::string> arguments;
        std::string named;
    };
    for (const Row& row : {Row{{"groups", "G/closed"}, "G/closed"},
                           {{"groups", "listed"}, "listed"},
                           {{"dictionaries", "listed"}, "listed"},
                           {{"dictionaries", "G"}, "G/closed"},
                           {{"search", "G", "a"}, "G/closed"},
                           {{"check", "listed"}, "listed"},
                           {{"check", "G/closed"}, "G/closed"},
                           {{"check", "G"}, "G/closed"},
                           {{"export", "listed", "G"}, "listed"},
                           {{"export", "G/closed", "G"}, "G/closed"}}) {
        SCOPED_TRACE(row.arguments[0] + " " + row.arguments[1]);
        const auto run = runCli(row.arguments, place);
        EXPECT_EQ(run.err, "velmarin-cli: " + row.named + ": Permission denied\n");
        EXPECT_EQ(run.status, 2);
    }
    for (const char* name : {"G/closed", "listed"})
        fs::permissions(folder.path() / name, fs::perms::owner_all);
}

} // namespace
