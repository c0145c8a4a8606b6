#include "CliTest.h"

#include <sstream>

namespace velmarin::test {

Arguments::Arguments(const char* line) {
    std::istringstream words(line);
    for (std::string word; words >> word;)
        push_back(word);
}

ProgramRun CliTest::run(const Arguments& arguments, ProgramPlace place) const {
    std::vector<std::string> words = {VELMARIN_CLI};
    words.insert(words.end(), arguments.begin(), arguments.end());
    place.folder = folder_.path();
    return runProgram(words, place);
}

void CliTest::expectRun(const CliCase& expected) const {
    SCOPED_TRACE(expected.reason);
    const ProgramRun found = run(expected.arguments, {.input = expected.input});
    std::string messages;
    std::istringstream lines(expected.err);
    for (std::string line; std::getline(lines, line);)
        messages += "velmarin-cli: " + line + "\n";
    EXPECT_EQ(found.out, expected.out);
    EXPECT_EQ(found.err, messages);
    EXPECT_EQ(found.status, expected.status);
}

} // namespace velmarin::test
