#include "CliTest.h"

namespace velmarin::test {

namespace fs = std::filesystem;

namespace {

using UserDictionaryCommand = CliTest;

TEST_F(UserDictionaryCommand, Builds) {
    const char* build = "user-dictionary build words.txt Mine";
    expectRun({build, "", "\"words.txt\" could not be read: No such file or directory", 2});
    EXPECT_FALSE(fs::exists(folder_.at("Mine")));

    folder_.write("words.txt", "amo__NUM__1\tlove\ncaf\xE9\tbar\n");
    expectRun({build, "2\t1\n"});
    EXPECT_EQ(folder_.read("Mine/Text.txt"), "amo¹\tlove\ncaf\xE9\tbar\n");
    EXPECT_EQ(folder_.read("Mine/Index.txt"), "AMO\t0\nCAF\xE9\t1\n");

    folder_.write("words.txt", "new\ty\n");
    expectRun({build, "", "\"Mine\" already holds a user dictionary. Use --replace to replace it.", 2});
    EXPECT_EQ(folder_.read("Mine/Index.txt"), "AMO\t0\nCAF\xE9\t1\n");
    expectRun({"user-dictionary build --replace words.txt Mine", "1\t0\n"});
    EXPECT_EQ(folder_.read("Mine/Text.txt"), "new\ty\n");
    expectRefusals({{{"user-dictionary", "build", "", "Mine"}, "an empty name is not a file"},
                    {{"user-dictionary", "build", "words.txt", ""}, "an empty name is not a folder"}});
}

TEST_F(UserDictionaryCommand, Searches) {
    folder_.write("words.txt", "amo__NUM__1\tto love\nclamor\tnoise\textra\nAMO__NUM__2\t__BR__hook\nno meaning\n");
    ASSERT_EQ(run("user-dictionary build words.txt Mine").status, 0);
    expectRuns(
        {{"user-dictionary search Mine amo", "amo¹\tto love\nAMO²\t__BR__hook\n"},
         {{"user-dictionary", "search", "Mine", "clamor", "x", "no meaning"}, "clamor\tnoise\textra\nno meaning\n"},
         {"user-dictionary search Mine", "clamor\tnoise\textra\n", "", 0, "clamor\n"},
         {"user-dictionary search --mode 1 Mine mor", "clamor\tnoise\textra\n"},
         {"user-dictionary search --mode 4 Mine ^C.*R$", "clamor\tnoise\textra\n"},
         {"user-dictionary search Mine amor", "", "", 1},
         {"user-dictionary search Yours amo", "", "Yours: No such file or directory", 2}});
    EXPECT_EQ(run("user-dictionary search --mode 5 Mine amo").status, 2);
    EXPECT_EQ(run("user-dictionary search . amo").status, 2) << "not a user dictionary";
}

} // namespace
} // namespace velmarin::test
