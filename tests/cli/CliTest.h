#pragma once

#include "support/RunProgram.h"
#include "support/TempFolder.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>

namespace velmarin::test {

/// Arguments, given one by one or in one string with blanks between them.
struct Arguments : std::vector<std::string> {
    using std::vector<std::string>::vector;
    Arguments() = default;
    Arguments(const char* line) {
        std::istringstream words(line);
        assign(std::istream_iterator<std::string>(words), {});
    }
};

/// A run of velmarin-cli and what it must write and return.
struct CliCase {
    Arguments arguments;
    std::string out{};
    std::string err{}; ///< its lines without "velmarin-cli: "
    int status = 0;
    std::string input{};
};

/// Runs velmarin-cli in a temporary folder.
class CliTest : public ::testing::Test {
  protected:
    ProgramRun run(Arguments arguments, ProgramPlace place = {}) const {
        arguments.insert(arguments.begin(), words_.begin(), words_.end());
        place.folder = folder_.path();
        return runProgram(arguments, place);
    }
    void expectRun(const CliCase& expected) const {
        SCOPED_TRACE(testing::PrintToString(expected.arguments));
        const ProgramRun found = run(expected.arguments, {.input = expected.input});
        std::string messages;
        std::istringstream lines(expected.err);
        for (std::string line; std::getline(lines, line);)
            messages += "velmarin-cli: " + line + "\n";
        EXPECT_EQ(found.out, expected.out);
        EXPECT_EQ(found.err, messages);
        EXPECT_EQ(found.status, expected.status);
    }
    void expectRuns(const std::vector<CliCase>& cases) const {
        for (const CliCase& each : cases)
            expectRun(each);
    }
    /// Each run must fail with its message, and none may change a file.
    void expectRefusals(const std::vector<std::pair<Arguments, std::string>>& rows) const {
        const Tree before = treeOf(folder_.path());
        for (const auto& [arguments, message] : rows)
            expectRun({arguments, "", message, 2});
        EXPECT_EQ(treeOf(folder_.path()), before);
    }

    TempFolder folder_;
    std::vector<std::string> words_{VELMARIN_CLI}; ///< before the arguments
};

} // namespace velmarin::test
