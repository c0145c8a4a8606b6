#include "CliTest.h"

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

using UserDictionaryCommand = CliTest;

TEST_F(UserDictionaryCommand, Builds) {
    const char* build = "user-dictionary build words.txt Mine";
    expectRun({"no source", build, "", "\"words.txt\" could not be read: No such file or directory", 2});
    EXPECT_FALSE(fs::exists(folder_.at("Mine")));

    folder_.write("words.txt", "amo__NUM__1\tlove\ncaf\xE9\tbar\n");
    expectRun({"entries, and those that are not UTF-8", build, "2\t1\n"});
    EXPECT_EQ(folder_.read("Mine/Text.txt"), "amo¹\tlove\ncaf\xE9\tbar\n");
    EXPECT_EQ(folder_.read("Mine/Index.txt"), "AMO\t0\nCAF\xE9\t1\n");

    folder_.write("words.txt", "new\ty\n");
    expectRun({"again", build, "", "\"Mine\" already holds a user dictionary. Use --replace to replace it.", 2});
    EXPECT_EQ(folder_.read("Mine/Index.txt"), "AMO\t0\nCAF\xE9\t1\n");
    expectRun({"replaced", "user-dictionary build --replace words.txt Mine", "1\t0\n"});
    EXPECT_EQ(folder_.read("Mine/Text.txt"), "new\ty\n");
    expectRun({"empty source", {"user-dictionary", "build", "", "Mine"}, "", "an empty name is not a file", 2});
    expectRun({"empty folder", {"user-dictionary", "build", "words.txt", ""}, "", "an empty name is not a folder", 2});
}

TEST_F(UserDictionaryCommand, Searches) {
    folder_.write("words.txt", "amo__NUM__1\tto love\nclamor\tnoise\textra\nAMO__NUM__2\t__BR__hook\nno meaning\n");
    ASSERT_EQ(run("user-dictionary build words.txt Mine").status, 0);
    const CliCase cases[] = {
        {"whole word", "user-dictionary search Mine amo", "amo¹\tto love\nAMO²\t__BR__hook\n"},
        {"several words",
         {"user-dictionary", "search", "Mine", "clamor", "x", "no meaning"},
         "clamor\tnoise\textra\nno meaning\n"},
        {"input", "user-dictionary search Mine", "clamor\tnoise\textra\n", "", 0, "clamor\n"},
        {"ends with", "user-dictionary search --mode 1 Mine mor", "clamor\tnoise\textra\n"},
        {"pattern", "user-dictionary search --mode 4 Mine ^C.*R$", "clamor\tnoise\textra\n"},
        {"nothing", "user-dictionary search Mine amor", "", "", 1},
        {"no such folder", "user-dictionary search Yours amo", "", "Yours: No such file or directory", 2}};
    for (const CliCase& each : cases)
        expectRun(each);
    EXPECT_EQ(run("user-dictionary search --mode 5 Mine amo").status, 2);
    EXPECT_EQ(run("user-dictionary search . amo").status, 2) << "not a user dictionary";
}

} // namespace
} // namespace velmarin::test
