#pragma once

#include "support/RunProgram.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmarin::test {

/// A run of velmarin-cli and what it must write and return.
struct CliCase {
    const char* reason;
    std::vector<std::string> arguments;
    std::string out{};
    std::string err{}; ///< its lines without "velmarin-cli: "
    int status = 0;
    std::string input{};
};

/// Runs velmarin-cli in a temporary folder.
class CliTest : public ::testing::Test {
  protected:
    ProgramRun run(const std::vector<std::string>& arguments, ProgramPlace place = {}) const;
    void expectRun(const CliCase& expected) const;

    TempFolder folder_;
};

} // namespace velmarin::test
