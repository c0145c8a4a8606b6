#include "RunCli.h"

#include <gtest/gtest.h>

#include <csignal>

namespace {

using velmarin::test::CliAtPipes;
using velmarin::test::CliPlace;
using velmarin::test::runCli;

std::string manyLines() {
    std::string text;
    while (text.size() < 1'000'000)
        text += "a word on a line\n";
    return text;
}

TEST(Output, FullDiskIsToldAndFails) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"key", "a"}, {"key"}, {"--help"}, {"search", "--help"}, {"--version"}}) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const auto run = runCli(arguments, {.input = manyLines(), .outFile = "/dev/full"});
        EXPECT_EQ(run.err, "velmarin-cli: standard output: No space left on device\n");
        EXPECT_EQ(run.status, 2);
    }
}

TEST(Output, ClosedOutputFailsOnlyWhereThereIsSomethingToSay) {
    const CliPlace closed = {.outClosed = true};
    const auto said = runCli({"key", "a"}, closed);
    EXPECT_EQ(said.err, "velmarin-cli: standard output: Bad file descriptor\n");
    EXPECT_EQ(said.status, 2);
    const auto silent = runCli({"key"}, closed);
    EXPECT_EQ(silent.err, "");
    EXPECT_EQ(silent.status, 0);
}

TEST(Output, ReaderThatGoesAwayEndsTheRunAsItEndsAnyFilter) {
    CliAtPipes cli({"key"});
    cli.closeOutput();
    cli.write("a\n");
    cli.closeInput();
    EXPECT_EQ(cli.status(), 128 + SIGPIPE);
}

} // namespace
