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
        std::size_t mostOutput = kMostScriptOutput;
    } cases[] = {{"AnyBytes", "printf 'a\\000\\377\\r\\n'", End::Exited, 0, std::string("a\0\xFF\r\n", 5)},
                 {"Failure", "echo lost; exit 3", End::Exited, 3, "lost\n"},
                 {"NoSuchProgram", "/no/such/program", End::Exited, 127, ""},
                 {"NothingToRead", "cat; echo end", End::Exited, 0, "end\n"},
                 {"ErrorOutputIsLeftOut", "echo x >&2; echo y", End::Exited, 0, "y\n"},
                 {"ClosesItsOutputAndContinues", "echo x; exec >&-; exit 4", End::Exited, 4, "x\n"},
                 {"EndsBySignal", "kill -TERM $$", End::Killed, -1, ""},
                 {"Endless", "yes", End::TooMuch, -1, ""},
                 {"AtTheLimit", "printf 12345", End::Exited, 0, "12345", 5},
                 {"BeyondTheLimit", "printf 123456", End::TooMuch, -1, "", 5}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const test::TempFolder folder;
        const auto script = folder.write("s.sh", each.script);
        const ScriptResult result = runScript(
            script, [] { return true; }, each.mostOutput);
        EXPECT_EQ(result.end, each.end);
        EXPECT_EQ(result.exitStatus, each.exitStatus);
        EXPECT_EQ(result.output, each.output);
        EXPECT_EQ(result.ok(), each.end == End::Exited && each.exitStatus == 0);
    }
}

bool runs(const std::string& pid) {
    std::ifstream stat("/proc/" + pid + "/stat");
    std::stringstream text;
    text << stat.rdbuf();
    const std::string fields = text.str();
    const std::size_t afterName = fields.rfind(')');
    return afterName != std::string::npos && fields[afterName + 2] != 'Z' && fields[afterName + 2] != 'X';
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

TEST(ScriptRunEnd, KillsWhatItHasStarted) {
    for (const bool stopped : {false, true}) {
        const test::TempFolder folder;
        const auto pids = folder.path() / "pid";
        const auto script = folder.write("s.sh", "sleep 1000 & echo $! > '" + pids.string() + "'" +
                                                     (stopped ? "; trap '' TERM; wait" : "; echo done"));
        const ScriptResult result = runScript(script, [&] { return !stopped || firstLine(pids).empty(); });
        EXPECT_EQ(result.end, stopped ? End::Stopped : End::Exited);
        EXPECT_EQ(result.output, stopped ? "" : "done\n");
        EXPECT_TRUE(comesToAnEnd(firstLine(pids)));
    }
}

} // namespace
} // namespace velmarin
