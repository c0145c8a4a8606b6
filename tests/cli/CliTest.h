#pragma once

#include "support/RunProgram.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmarin::test {

/// Arguments, given one by one or in one string with blanks between them.
struct Arguments : std::vector<std::string> {
    using std::vector<std::string>::vector;
    Arguments() = default;
    Arguments(const char* line);
};

/// A run of velmarin-cli and what it must write and return.
struct CliCase {
    const char* reason;
    Arguments arguments;
    std::string out{};
    std::string err{}; ///< its lines without "velmarin-cli: "
    int status = 0;
    std::string input{};
};

/// Runs velmarin-cli in a temporary folder.
class CliTest : public ::testing::Test {
  protected:
    ProgramRun run(const Arguments& arguments, ProgramPlace place = {}) const;
    void expectRun(const CliCase& expected) const;

    TempFolder folder_;
};

} // namespace velmarin::test
