#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>

namespace velmarin {

struct ScriptResult {
    enum class End {
        Exited,     ///< by itself, with `exitStatus`
        Killed,     ///< by a signal from another process
        Stopped,    ///< by the caller
        TooMuch,    ///< its output exceeded the limit
        NotStarted, ///< the shell could not be started
    };
    End end = End::NotStarted;
    int exitStatus = -1;
    /// Its standard output, byte for byte; empty unless it exited.
    std::string output;

    bool ok() const { return end == End::Exited && exitStatus == 0; }
};

inline constexpr std::size_t kMostScriptOutput = std::size_t{16} << 20;

/// Runs `sh script` and waits for its end, without a time limit. Its standard input is empty and its error output is
/// dropped. It runs in a process group of its own: processes that it has started and that still run are killed at its
/// end. `mayContinue` is called about fifty times a second; if it returns false, the script is stopped.
ScriptResult runScript(const std::filesystem::path& script, const std::function<bool()>& mayContinue,
                       std::size_t mostOutput = kMostScriptOutput);

} // namespace velmarin
