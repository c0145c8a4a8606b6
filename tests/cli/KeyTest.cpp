#include "RunCli.h"

#include <gtest/gtest.h>

namespace {

using velmarin::test::runCli;

struct KeyCase {
    const char* reason;
    std::vector<std::string> arguments;
    std::string input;
    std::string out;
};

class Key : public testing::TestWithParam<KeyCase> {};

TEST_P(Key, IsWritten) {
    std::vector<std::string> arguments = {"key"};
    arguments.insert(arguments.end(), GetParam().arguments.begin(), GetParam().arguments.end());
    const auto run = runCli(arguments, {.folder = {}, .input = GetParam().input, .outFile = {}});
    EXPECT_EQ(run.out, GetParam().out);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Words, Key,
    testing::Values(
        KeyCase{"FoldsAccentsWidthKanaAndCase", {"Straße", "Ａｂｃ", "アセ"}, "", "STRASSE\nABC\nあセ\n"},
        KeyCase{"LineIsCutAtTheDelimiter", {"abbé__DLM__noun"}, "", "ABBE\n"},
        KeyCase{"SpanishDigraphsAreLetters", {"--spanish", "chico", "LLAMA"}, "", "CƩICO\nLʎAMA\n"},
        KeyCase{"IjuvFoldsBothCases", {"--ijuv", "Julius", "VIVO"}, "", "IULIUS\nUIUO\n"},
        KeyCase{"WithoutAModeTheLettersStay", {"chico", "Julius"}, "", "CHICO\nJULIUS\n"},
        KeyCase{"EmptyWord", {""}, "", "\n"},
        KeyCase{"WordsThatLookLikeSomethingElse",
                {"[a,b]", "{}", "++", "key", "-5", "%%", "\x1F"},
                "",
                "[A,B]\n{}\n++\nKEY\n-5\n%%\n␟\n"},
        KeyCase{"WordsBehindTwoDashesMayBeginWithOne", {"a", "--", "-b", "--ijuv", "--"}, "", "A\n-B\n--IJUV\n--\n"},
        KeyCase{"ControlCharactersAreShownAsPictures", {"a\tb\nc\rd\x7F"}, "", "A␉B␊C␍D␡\n"},
        KeyCase{"BytesThatAreNoUtf8AreReplaced", {"a\xFFz", "\xC3"}, "", "A\xEF\xBF\xBDZ\n\xEF\xBF\xBD\n"},
        KeyCase{"LinesEndInAnyOfTheThreeWays", {}, "a\r\nb\rc\n\nd", "A\nB\nC\n\nD\n"},
        KeyCase{"ByteOrderMarkIsNoText",
                {},
                "\xEF\xBB\xBF"
                "a\n\xEF\xBB\xBF"
                "b\n",
                "A\n\xEF\xBB\xBF"
                "B\n"},
        KeyCase{"ByteOrderMarkAlone", {}, "\xEF\xBB\xBF", ""}, KeyCase{"EmptyInput", {}, "", ""},
        KeyCase{"NulInALine", {}, std::string("a\0b\n", 4), "A␀B\n"},
        KeyCase{"InputIsLeftAloneWhereThereAreWords", {"a"}, "b\n", "A\n"}),
    [](const auto& info) { return info.param.reason; });

TEST(KeyInput, LinesBeyondTheBufferStayWhole) {
    const std::string longLine(200'000, 'x');
    const auto run = runCli({"key"}, {.folder = {}, .input = longLine + "\r\n" + longLine + "y\n", .outFile = {}});
    EXPECT_EQ(run.out, std::string(200'000, 'X') + "\n" + std::string(200'000, 'X') + "Y\n");
}

TEST(KeyInput, EachLineIsAnsweredBeforeTheNextIsWaitedFor) {
    velmarin::test::CliAtPipes cli({"key"});
    cli.write("é\n");
    EXPECT_EQ(cli.readLine(), "E\n");
    cli.write("\xEF\xBB");
    cli.write("\xBF\r");
    EXPECT_EQ(cli.readLine(), "\xEF\xBB\xBF\n");
    cli.write("\nf");
    cli.closeInput();
    EXPECT_EQ(cli.readLine(), "F\n");
    EXPECT_EQ(cli.status(), 0);
}

TEST(KeyInput, LineWithoutEndIsRefusedBeforeMemoryRunsOut) {
    const auto run = runCli({"key"}, {.folder = {}, .input = "a\n" + std::string(2 << 20, 'x'), .outFile = {}});
    EXPECT_EQ(run.out, "A\n");
    EXPECT_EQ(run.err, "velmarin-cli: standard input: a line is longer than a megabyte\n");
    EXPECT_EQ(run.status, 2);
}

} // namespace
