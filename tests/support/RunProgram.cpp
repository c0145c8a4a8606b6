#include "support/RunProgram.h"

#include "support/TempFolder.h"

#include <cerrno>
#include <stdexcept>
#include <utility>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmarin::test {

namespace {

/// Starts a program with these descriptors as standard input and output. It is spawned and not forked, because the
/// sanitizers make this process large.
pid_t spawn(const std::vector<std::string>& words, int input = STDIN_FILENO, int output = STDOUT_FILENO) {
    std::vector<char*> argv;
    for (const std::string& word : words)
        argv.push_back(const_cast<char*>(word.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    pid_t child = -1;
    const int error = ::posix_spawnp(&child, argv[0], &actions, nullptr, argv.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        throw std::runtime_error("could not start " + words[0]);
    return child;
}

int statusOf(pid_t child) {
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

void closeOnce(int& descriptor) {
    if (const int open = std::exchange(descriptor, -1); open >= 0)
        ::close(open);
}

} // namespace

ProgramRun runProgram(const std::vector<std::string>& words, const ProgramPlace& place) {
    const TempFolder files;
    const std::string in = files.write("in", place.input), out = files.write("out", ""), err = files.write("err", "");
    const std::string to = place.outClosed ? "&-" : place.outFile.empty() ? out : place.outFile;
    std::vector<std::string> all = {"sh", "-c", "cd \"$0\" && exec \"$@\" <" + in + " 2>" + err + " >" + to,
                                    place.folder.empty() ? "." : place.folder.native()};
    all.insert(all.end(), words.begin(), words.end());
    const int status = statusOf(spawn(all));
    return {status, files.read("out"), files.read("err")};
}

ProgramAtPipes::ProgramAtPipes(const std::vector<std::string>& words) {
    int in[2];
    int out[2];
    if (::pipe2(in, O_CLOEXEC) != 0 || ::pipe2(out, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe could be made");
    pid_ = spawn(words, in[0], out[1]);
    ::close(in[0]);
    ::close(out[1]);
    input_ = in[1];
    output_ = out[0];
}

ProgramAtPipes::~ProgramAtPipes() {
    closeInput();
    closeOutput();
    if (pid_ > 0)
        statusOf(pid_);
}

void ProgramAtPipes::write(const std::string& text) const {
    if (::write(input_, text.data(), text.size()) != static_cast<ssize_t>(text.size()))
        throw std::runtime_error("the program did not take its input");
}

std::string ProgramAtPipes::readLine() const {
    std::string line;
    for (char c = 0; c != '\n' && ::read(output_, &c, 1) == 1;)
        line += c;
    return line;
}

void ProgramAtPipes::closeInput() {
    closeOnce(input_);
}

void ProgramAtPipes::closeOutput() {
    closeOnce(output_);
}

int ProgramAtPipes::wait() {
    return statusOf(std::exchange(pid_, -1));
}

} // namespace velmarin::test
