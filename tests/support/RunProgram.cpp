#include "support/RunProgram.h"

#include "support/TempFolder.h"

#include <cstdlib>

#include <sys/wait.h>

namespace velmarin::test {

namespace {

std::string quoted(const std::string& word) {
    std::string text = "'";
    for (const char c : word)
        text += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return text + "'";
}

} // namespace

ProgramRun runProgram(const std::vector<std::string>& words, const ProgramPlace& place) {
    const TempFolder files;
    const std::string in = files.write("in", place.input), out = files.write("out", ""), err = files.write("err", "");
    std::string line = "cd " + quoted(place.folder) + " && exec";
    for (const std::string& word : words)
        line += " " + quoted(word);
    line += " <" + in + " 2>" + err + " >" + (place.out.empty() ? out : place.out);
    const int status = std::system(line.c_str());
    return {WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status), files.read("out"), files.read("err")};
}

} // namespace velmarin::test
