#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>

namespace velmarin {

struct ScriptResult {
    enum class End {
        Exited,     ///< by itself: `exitStatus` says how
        Killed,     ///< by a signal of somebody else's
        Stopped,    ///< because the caller wished so
        TooMuch,    ///< its output went beyond the limit
        NotStarted, ///< the shell could not be run
    };
    End end = End::NotStarted;
    int exitStatus = -1;
    /// What it wrote to its standard output, byte for byte; empty unless it exited.
    std::string output;

    bool ok() const { return end == End::Exited && exitStatus == 0; }
};

inline constexpr std::size_t kMostScriptOutput = std::size_t{16} << 20;

/// Runs `sh script` and waits for its end, without a time limit. It gets nothing to read, its error output goes
/// nowhere, and it has a process group of its own: whatever it has started and left behind is ended with it. While it
/// runs `goOn` is called some fifty times a second; answering false stops it.
ScriptResult runScript(const std::filesystem::path& script, const std::function<bool()>& goOn,
                       std::size_t mostOutput = kMostScriptOutput);

} // namespace velmarin
