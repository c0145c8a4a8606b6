#include "RunCli.h"

#include <gtest/gtest.h>

namespace {

using velmarin::test::runCli;

TEST(Key, IsWritten) {
    const struct {
        const char* reason;
        std::vector<std::string> arguments;
        std::string input;
        std::string out;
    } cases[] = {{"FoldsAccentsWidthKanaAndCase", {"Straße", "Ａｂｃ", "アセ"}, "", "STRASSE\nABC\nあセ\n"},
                 {"LineIsCutAtTheDelimiter", {"abbé__DLM__noun"}, "", "ABBE\n"},
                 {"SpanishDigraphsAreLetters", {"--spanish", "chico", "LLAMA"}, "", "CƩICO\nLʎAMA\n"},
                 {"IjuvFoldsBothCases", {"--ijuv", "Julius", "VIVO"}, "", "IULIUS\nUIUO\n"},
                 {"WithoutAModeTheLettersStay", {"chico", "Julius"}, "", "CHICO\nJULIUS\n"},
                 {"EmptyWord", {""}, "", "\n"},
                 {"WordsThatLookLikeSomethingElse",
                  {"[a,b]", "{}", "++", "key", "-5", "%%", "\x1F"},
                  "",
                  "[A,B]\n{}\n++\nKEY\n-5\n%%\n␟\n"},
                 {"WordsBehindTwoDashesMayBeginWithOne", {"a", "--", "-b", "--ijuv", "--"}, "", "A\n-B\n--IJUV\n--\n"},
                 {"ControlCharactersAreShownAsPictures", {"a\tb\nc\rd\x7F"}, "", "A␉B␊C␍D␡\n"},
                 {"InvalidUtf8IsReplaced", {"a\xFFz", "\xC3"}, "", "A\xEF\xBF\xBDZ\n\xEF\xBF\xBD\n"},
                 {"LinesEndInAnyOfTheThreeWays", {}, "a\r\nb\rc\n\nd", "A\nB\nC\n\nD\n"},
                 {"ByteOrderMarkAtTheStartIsSkipped",
                  {},
                  "\xEF\xBB\xBF"
                  "a\n\xEF\xBB\xBF"
                  "b\n",
                  "A\n\xEF\xBB\xBF"
                  "B\n"},
                 {"EmptyInput", {}, "", ""},
                 {"NulInALine", {}, std::string("a\0b\n", 4), "A␀B\n"},
                 {"InputIsNotReadWhenThereAreWords", {"a"}, "b\n", "A\n"}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.reason);
        std::vector<std::string> arguments = {"key"};
        arguments.insert(arguments.end(), each.arguments.begin(), each.arguments.end());
        const auto run = runCli(arguments, {.input = each.input});
        EXPECT_EQ(run.out, each.out);
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(run.status, 0);
    }
}

TEST(KeyInput, LinesBeyondTheBufferStayWhole) {
    const std::string longLine(200'000, 'x');
    const auto run = runCli({"key"}, {.input = longLine + "\r\n" + longLine + "y\n"});
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
    const auto run = runCli({"key"}, {.input = "a\n" + std::string(2 << 20, 'x')});
    EXPECT_EQ(run.out, "A\n");
    EXPECT_EQ(run.err, "velmarin-cli: standard input: a line is longer than a megabyte\n");
    EXPECT_EQ(run.status, 2);
}

} // namespace
