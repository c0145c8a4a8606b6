#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace velmarin::test {

/// The result of a program that has ended.
struct ProgramRun {
    int status = -1; ///< or 128 plus the number of the signal that ended it
    std::string out;
    std::string err;
};

struct ProgramPlace {
    std::filesystem::path folder = "."; ///< the working folder
    std::string input{};                ///< standard input
    std::string out{};                  ///< redirected there ("/dev/full", "&-") instead of to a file that is read back
};

/// Runs a program, found on PATH like in a shell, and waits for its end.
ProgramRun runProgram(const std::vector<std::string>& words, const ProgramPlace& place = {});

} // namespace velmarin::test
