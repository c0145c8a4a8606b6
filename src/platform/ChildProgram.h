#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// What a child program may use. Zero: no limit.
struct ChildLimits {
    std::chrono::milliseconds wall{0};
    std::chrono::seconds processor{0};
    std::uint64_t memory = 0;                   ///< bytes of address space of each of its processes
    std::uint64_t fileSize = 0;                 ///< bytes of each file that it writes
    std::size_t output = std::size_t{16} << 20; ///< bytes of its standard output that are kept; not optional
};

/// A program to be run as a child.
struct ChildProgram {
    std::filesystem::path file = {};         ///< an absolute path: see programOnPath
    std::vector<std::string> arguments = {}; ///< without the program's name; no shell reads them
    std::filesystem::path folder = {};       ///< its working folder; empty: the caller's
    std::vector<int> descriptors = {};       ///< what it has as descriptors 3 and 4; it inherits no others
    ChildLimits limits = {};
    /// Called about fifty times a second; if it returns false, the program is stopped. Empty: never.
    std::function<bool()> mayContinue = {};
};

struct ChildResult {
    enum class End {
        Exited,     ///< by itself, with `exitStatus`
        Killed,     ///< by a signal from elsewhere, or by its own fault
        Stopped,    ///< by the caller
        TooLong,    ///< it exceeded the limit of time
        TooMuch,    ///< its output, or a file that it wrote, exceeded the limit
        NotStarted, ///< the program could not be started
    };
    End end = End::NotStarted;
    int exitStatus = -1;
    std::string output = {}; ///< its standard output, byte for byte; empty unless it exited
    std::string errors = {}; ///< the first few kilobytes of its error output

    bool ok() const { return end == End::Exited && exitStatus == 0; }
};

/// The program of this name in the first folder of `searchPath` ("/usr/local/bin:/usr/bin") that has one; nullopt if
/// none has. Relative folders are skipped.
std::optional<std::filesystem::path> programOnPath(std::string_view name, std::string_view searchPath);
/// The environment's search path.
std::string searchPathOfEnvironment();

/// Runs a program and waits for its end. Its standard input is empty. It runs in a process group of its own: processes
/// that it has started and that still run are killed at its end. May be called from several threads.
ChildResult runChild(const ChildProgram& program);

} // namespace velmarin
