#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace velmarin::test {

struct ProgramRun {
    bool killed = false;
    int status = -1; ///< -1 if a signal ended it
};

/// Runs a program, found as the shell finds it, with standard output and error in one file, and waits for its end.
ProgramRun runProgram(const std::vector<std::string>& words, const std::filesystem::path& output);

/// The bytes of a file; empty where there is none.
std::string textOf(const std::filesystem::path& file);

} // namespace velmarin::test
