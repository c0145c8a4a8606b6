#include "side/ScriptRun.h"

#include "support/TempFolder.h"

#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

using End = ScriptResult::End;

TEST(ScriptRun, EndsAsTheShellDoes) {
    const struct {
        const char* name;
        const char* script;
        End end;
        int exitStatus;
        std::string output;
    } cases[] = {{"Success", "printf 'a\\nb'", End::Exited, 0, "a\nb"},
                 {"AnyBytes", "printf 'a\\000\\377\\r\\n'", End::Exited, 0, std::string("a\0\xFF\r\n", 5)},
                 {"Failure", "echo lost; exit 3", End::Exited, 3, "lost\n"},
                 {"NoSuchProgram", "/no/such/program", End::Exited, 127, ""},
                 {"NothingToRead", "cat; echo end", End::Exited, 0, "end\n"},
                 {"ErrorOutputIsLeftOut", "echo x >&2; echo y", End::Exited, 0, "y\n"},
                 {"ClosesItsOutputAndGoesOn", "echo x; exec >&-; exit 4", End::Exited, 4, "x\n"},
                 {"EndsBySignal", "kill -TERM $$", End::Killed, -1, ""}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const test::TempFolder folder;
        const ScriptResult result = runScript(folder.write("s.sh", each.script), [] { return true; });
        EXPECT_EQ(result.end, each.end);
        EXPECT_EQ(result.exitStatus, each.exitStatus);
        EXPECT_EQ(result.output, each.output);
        EXPECT_EQ(result.ok(), each.end == End::Exited && each.exitStatus == 0);
    }
}

TEST(ScriptRunOutput, WithoutEndIsCutOffAndIsAFailure) {
    const test::TempFolder folder;
    const auto script = folder.write("s.sh", "yes");
    const ScriptResult result = runScript(script, [] { return true; });
    EXPECT_EQ(result.end, End::TooMuch);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(runScript(
                  folder.write("s.sh", "printf 12345"), [] { return true; }, 5)
                  .output,
              "12345");
    EXPECT_EQ(runScript(
                  folder.write("s.sh", "printf 123456"), [] { return true; }, 5)
                  .end,
              End::TooMuch);
}

bool runs(const std::string& pid) {
    std::ifstream stat("/proc/" + pid + "/stat");
    std::stringstream text;
    text << stat.rdbuf();
    const std::string fields = text.str();
    const std::size_t behindName = fields.rfind(')');
    return behindName != std::string::npos && fields[behindName + 2] != 'Z' && fields[behindName + 2] != 'X';
}

/// Waits until a process is gone: it has been killed, and only the kernel's own work is left.
bool comesToAnEnd(const std::string& pid) {
    constexpr int kTurns = 2'000'000;
    for (int turn = 0; turn < kTurns; ++turn)
        if (!runs(pid))
            return true;
    return false;
}

std::string firstLine(const std::filesystem::path& path) {
    std::ifstream in(path);
    std::string line;
    std::getline(in, line);
    return line;
}

TEST(ScriptRunStop, EndsTheWholeGroup) {
    const test::TempFolder folder;
    const auto pids = folder.path() / "pid";
    const auto script = folder.write("s.sh", "sleep 1000 & echo $! > '" + pids.string() + "'; trap '' TERM; wait");
    int asked = 0;
    const ScriptResult result = runScript(script, [&] {
        ++asked;
        return firstLine(pids).empty();
    });
    EXPECT_EQ(result.end, End::Stopped);
    EXPECT_GT(asked, 0);
    EXPECT_TRUE(comesToAnEnd(firstLine(pids)));
}

TEST(ScriptRunStop, BackgroundProcessesAreEndedWithoutWaiting) {
    const test::TempFolder folder;
    const auto pids = folder.path() / "pid";
    const auto script = folder.write("s.sh", "sleep 1000 & echo $! > '" + pids.string() + "'; echo done");
    const ScriptResult result = runScript(script, [] { return true; });
    EXPECT_TRUE(result.ok());
    EXPECT_EQ(result.output, "done\n");
    EXPECT_TRUE(comesToAnEnd(firstLine(pids)));
}

} // namespace
} // namespace velmarin
