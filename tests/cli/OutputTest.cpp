#include "CliTest.h"

#include <csignal>

namespace velmarin::test {

namespace {

using Output = CliTest;

TEST_F(Output, FailedWriteIsReportedOnce) {
    std::string input;
    while (input.size() < 1'000'000)
        input += "a word on a line\n";
    for (const char* arguments : {"key a", "key", "--help", "search --help", "--version"}) {
        SCOPED_TRACE(arguments);
        const ProgramRun full = run(arguments, {.input = input, .outFile = "/dev/full"});
        EXPECT_EQ(full.err, "velmarin-cli: standard output: No space left on device\n");
        EXPECT_EQ(full.status, 2);
        const ProgramRun closed = run(arguments, {.input = input, .outClosed = true});
        EXPECT_EQ(closed.err, "velmarin-cli: standard output: Bad file descriptor\n");
        EXPECT_EQ(closed.status, 2);
    }
    const ProgramRun silent = run("key", {.outClosed = true});
    EXPECT_EQ(silent.err, "");
    EXPECT_EQ(silent.status, 0);
}

TEST_F(Output, ReaderThatGoesAwayEndsTheRun) {
    ProgramAtPipes cli({VELMARIN_CLI, "key"});
    cli.closeOutput();
    cli.write("a\n");
    cli.closeInput();
    EXPECT_EQ(cli.wait(), 128 + SIGPIPE);
}

} // namespace
} // namespace velmarin::test
