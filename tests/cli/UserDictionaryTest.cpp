#include "RunCli.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace {

using velmarin::test::CliRun;
using velmarin::test::runCli;
using velmarin::test::TempFolder;

struct BuiltDictionary {
    TempFolder folder;
    CliRun run;

    explicit BuiltDictionary(const std::string& source) {
        folder.write("words.txt", source);
        run = runCli({"user-dictionary", "build", "words.txt", "Mine"}, {.folder = folder.path()});
    }
};

TEST(UserDictionaryBuild, CountsTheEntriesAndThoseThatAreNotUtf8) {
    const BuiltDictionary built("amo__NUM__1\tlove\ncaf\xE9\tbar\n");
    EXPECT_EQ(built.run.status, 0) << built.run.err;
    EXPECT_EQ(built.run.out, "2\t1\n");
    EXPECT_EQ(built.folder.read("Mine/Text.txt"), "amo¹\tlove\ncaf\xE9\tbar\n");
    EXPECT_EQ(built.folder.read("Mine/Index.txt"), "AMO\t0\nCAF\xE9\t1\n");
}

TEST(UserDictionaryBuild, ReplacesOnlyOnRequest) {
    const BuiltDictionary built("old\tx\n");
    built.folder.write("words.txt", "new\ty\n");
    const CliRun refused = runCli({"user-dictionary", "build", "words.txt", "Mine"}, {.folder = built.folder.path()});
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.err, "velmarin-cli: \"Mine\" already holds a user dictionary. Use --replace to replace it.\n");
    EXPECT_EQ(built.folder.read("Mine/Text.txt"), "old\tx\n");
    const CliRun replaced =
        runCli({"user-dictionary", "build", "--replace", "words.txt", "Mine"}, {.folder = built.folder.path()});
    EXPECT_EQ(replaced.status, 0) << replaced.err;
    EXPECT_EQ(built.folder.read("Mine/Text.txt"), "new\ty\n");
}

TEST(UserDictionaryBuild, ThatFailsLeavesNoFolderBehind) {
    const TempFolder folder;
    const CliRun run = runCli({"user-dictionary", "build", "none.txt", "Mine"}, {.folder = folder.path()});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "velmarin-cli: \"none.txt\" could not be read.\n");
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "Mine"));
}

TEST(UserDictionarySearch, WritesTheLinesOfTheText) {
    const struct {
        const char* reason;
        std::vector<std::string> arguments;
        std::string input;
        std::string out;
        int status;
    } cases[] = {
        {"WholeWord", {"Mine", "amo"}, "", "amo¹\tto love\nAMO²\t__BR__hook\n", 0},
        {"SeveralWords", {"Mine", "clamor", "nothing", "no meaning"}, "", "clamor\tnoise\textra\nno meaning\n", 0},
        {"FromInput", {"Mine"}, "clamor\n", "clamor\tnoise\textra\n", 0},
        {"EndsWith", {"--mode", "1", "Mine", "mor"}, "", "clamor\tnoise\textra\n", 0},
        {"Pattern", {"--mode", "4", "Mine", "^C.*R$"}, "", "clamor\tnoise\textra\n", 0},
        {"Nothing", {"Mine", "amor"}, "", "", 1},
        {"NoSuchMode", {"--mode", "5", "Mine", "amo"}, "", "", 2},
        {"NoSuchFolder", {"Yours", "amo"}, "", "", 2},
        {"FolderWithoutADictionary", {".", "amo"}, "", "", 2}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.reason);
        const BuiltDictionary built(
            "amo__NUM__1\tto love\nclamor\tnoise\textra\nAMO__NUM__2\t__BR__hook\nno meaning\n");
        std::vector<std::string> arguments = {"user-dictionary", "search"};
        arguments.insert(arguments.end(), each.arguments.begin(), each.arguments.end());
        const CliRun run = runCli(arguments, {.folder = built.folder.path(), .input = each.input});
        EXPECT_EQ(run.out, each.out);
        EXPECT_EQ(run.status, each.status) << run.err;
    }
}

} // namespace
