#include "CliTest.h"

namespace velmarin::test {

namespace {

using KeyCommand = CliTest;

#define BOM "\xEF\xBB\xBF"

TEST_F(KeyCommand, WritesTheSearchWords) {
    const std::string longLine(200'000, 'x'), longWord(200'000, 'X');
    const CliCase cases[] = {{"accents, width, kana and case", "key Straße Ａｂｃ アセ", "STRASSE\nABC\nあセ\n"},
                             {"cut at the delimiter", "key abbé__DLM__noun", "ABBE\n"},
                             {"Spanish digraphs", "key --spanish chico LLAMA", "CƩICO\nLʎAMA\n"},
                             {"IJUV in both cases", "key --ijuv Julius VIVO", "IULIUS\nUIUO\n"},
                             {"no mode", "key chico Julius", "CHICO\nJULIUS\n"},
                             {"empty word", {"key", ""}, "\n"},
                             {"words that look like options or lists",
                              {"key", "[a,b]", "{}", "++", "key", "-5", "%%", "\x1F"},
                              "[A,B]\n{}\n++\nKEY\n-5\n%%\n␟\n"},
                             {"words after two dashes", "key a -- -b --ijuv --", "A\n-B\n--IJUV\n--\n"},
                             {"control characters", {"key", "a\tb\nc\rd\x7F"}, "A␉B␊C␍D␡\n"},
                             {"invalid UTF-8", {"key", "a\xFFz", "\xC3"}, "A\xEF\xBF\xBDZ\n\xEF\xBF\xBD\n"},
                             {"all line ends", "key", "A\nB\nC\n\nD\n", "", 0, "a\r\nb\rc\n\nd"},
                             {"byte-order mark only at the start", "key", "A\n" BOM "B\n", "", 0, BOM "a\n" BOM "b\n"},
                             {"empty input", "key"},
                             {"NUL in a line", "key", "A␀B\n", "", 0, std::string("a\0b\n", 4)},
                             {"input is ignored if there are words", "key a", "A\n", "", 0, "b\n"},
                             {"lines beyond the buffer", "key", longWord + "\n" + longWord + "Y\n", "", 0,
                              longLine + "\r\n" + longLine + "y"},
                             {"line without end", "key", "A\n", "standard input: a line is longer than a megabyte", 2,
                              "a\n" + std::string(2 << 20, 'x')}};
    for (const CliCase& each : cases)
        expectRun(each);
}

TEST_F(KeyCommand, AnswersEachLineBeforeItWaitsForTheNext) {
    ProgramAtPipes cli({VELMARIN_CLI, "key"});
    cli.write("é\n");
    EXPECT_EQ(cli.readLine(), "E\n");
    cli.write("\xEF\xBB");
    cli.write("\xBF\r");
    EXPECT_EQ(cli.readLine(), BOM "\n");
    cli.write("\nf");
    cli.closeInput();
    EXPECT_EQ(cli.readLine(), "F\n");
    EXPECT_EQ(cli.wait(), 0);
}

} // namespace
} // namespace velmarin::test
