#include "platform/ChildProgram.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace velmarin {
namespace {

using End = ChildResult::End;
using namespace std::chrono_literals;

ChildProgram shell(const std::string& script, const ChildLimits& limits = {}) {
    return {.file = "/bin/sh", .arguments = {"-c", script}, .limits = limits};
}

TEST(ChildProgram, EndsAsTheProgramDoes) {
    const struct {
        const char* script;
        End end;
        int exitStatus;
        std::string output;
        ChildLimits limits = {};
    } cases[] = {
        {"printf 'a\\000\\377\\r\\n'", End::Exited, 0, std::string("a\0\xFF\r\n", 5)},
        {"echo lost; exit 3", End::Exited, 3, "lost\n"},
        {"cat; echo end", End::Exited, 0, "end\n"},
        {"echo x >&2; echo y", End::Exited, 0, "y\n"},
        {"echo x; exec >&-; exit 4", End::Exited, 4, "x\n"},
        {"kill -TERM $$", End::Killed, -1, ""},
        {"yes", End::TooMuch, -1, ""},
        {"printf 12345", End::Exited, 0, "12345", {.output = 5}},
        {"printf 123456", End::TooMuch, -1, "", {.output = 5}},
        {"yes >&2", End::TooLong, -1, "", {.wall = 200ms}},
        {"sleep 1000", End::TooLong, -1, "", {.wall = 20ms}},
        {"while :; do :; done", End::TooLong, -1, "", {.processor = 1s}},
        {"exec head -c 9000 /dev/zero > f", End::TooMuch, -1, "", {.fileSize = 4000}},
        {"dd if=/dev/zero of=/dev/null bs=80M count=1 || echo no", End::Exited, 0, "no\n", {.memory = 60 << 20}}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.script);
        const test::TempFolder folder;
        ChildProgram program = shell(each.script, each.limits);
        program.folder = folder.path();
        const ChildResult result = runChild(program);
        EXPECT_EQ(result.end, each.end);
        EXPECT_EQ(result.exitStatus, each.exitStatus);
        EXPECT_EQ(result.output, each.output);
        EXPECT_EQ(result.ok(), each.end == End::Exited && each.exitStatus == 0);
        EXPECT_LE(result.errors.size(), 4096U);
    }
}

TEST(ChildProgram, PassesArgumentsAsTheyAre) {
    const ChildResult result =
        runChild({.file = "/usr/bin/printf", .arguments = {"[%s]", "a b", "", "$HOME", "new\nline", "-x", "'"}});
    EXPECT_EQ(result.output, "[a b][][$HOME][new\nline][-x][']");
    EXPECT_EQ(runChild(shell("echo $0 lost >&2")).errors, "sh lost\n");
}

TEST(ChildProgram, MayBeMissing) {
    const test::TempFolder folder;
    folder.write("bin/tool", "#!/bin/sh\n");
    EXPECT_FALSE(programOnPath("tool", folder.at("bin").string())) << "it may not be executed";
    std::filesystem::permissions(folder.at("bin/tool"), std::filesystem::perms::owner_all);
    EXPECT_EQ(programOnPath("tool", ":relative:/no/such:" + folder.at("bin").string()), folder.at("bin/tool"));
    EXPECT_FALSE(programOnPath("tool", ""));
    EXPECT_EQ(runChild({.file = folder.at("gone")}).end, End::NotStarted);
    EXPECT_EQ(runChild({.file = "/bin/true", .folder = folder.at("gone")}).end, End::NotStarted);
}

TEST(ChildProgram, KillsWhatItHasStarted) {
    for (const bool stopped : {false, true}) {
        const test::TempFolder folder;
        folder.fifo("held"); // every process of the script has it open
        const int held = ::open(folder.at("held").c_str(), O_RDONLY | O_NONBLOCK);
        ChildProgram program = shell(stopped ? "exec 3> held; trap '' TERM; sleep 1000 & > started; wait"
                                             : "exec 3> held; sleep 1000 & echo done");
        program.folder = folder.path();
        program.mayContinue = [&] { return !stopped || !std::filesystem::exists(folder.at("started")); };
        const ChildResult result = runChild(program);
        EXPECT_EQ(result.end, stopped ? End::Stopped : End::Exited);
        EXPECT_EQ(result.output, stopped ? "" : "done\n");
        pollfd closed{.fd = held, .events = POLLIN, .revents = 0};
        EXPECT_EQ(::poll(&closed, 1, 5000), 1) << "one of them still runs";
        EXPECT_EQ(closed.revents, POLLHUP);
        ::close(held);
    }
}

} // namespace
} // namespace velmarin
