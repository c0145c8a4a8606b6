#include "support/RunProgram.h"

#include "support/TempFolder.h"

#include <cerrno>
#include <csignal>
#include <stdexcept>
#include <utility>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmarin::test {

namespace {

/// The start of a program. It is spawned and not forked, because the sanitizers make this process large.
class Start {
  public:
    Start() {
        ::posix_spawn_file_actions_init(&actions_);
        ::posix_spawnattr_init(&attributes_);
        sigset_t signals;
        ::sigemptyset(&signals);
        ::sigaddset(&signals, SIGPIPE);
        ::posix_spawnattr_setsigdefault(&attributes_, &signals);
        ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF);
    }
    ~Start() {
        ::posix_spawn_file_actions_destroy(&actions_);
        ::posix_spawnattr_destroy(&attributes_);
    }
    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;

    void enter(const std::filesystem::path& folder) {
        ::posix_spawn_file_actions_addchdir_np(&actions_, folder.c_str());
    }
    void open(int descriptor, const std::filesystem::path& file, int flags) {
        ::posix_spawn_file_actions_addopen(&actions_, descriptor, file.c_str(), flags, 0600);
    }
    void use(int descriptor, int as) { ::posix_spawn_file_actions_adddup2(&actions_, descriptor, as); }
    void close(int descriptor) { ::posix_spawn_file_actions_addclose(&actions_, descriptor); }

    pid_t run(const std::vector<std::string>& words) const {
        std::vector<char*> argv;
        for (const std::string& word : words)
            argv.push_back(const_cast<char*>(word.c_str()));
        argv.push_back(nullptr);
        pid_t child = -1;
        if (::posix_spawnp(&child, argv[0], &actions_, &attributes_, argv.data(), environ) != 0)
            throw std::runtime_error("could not start " + words[0]);
        return child;
    }

  private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

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
    Start start;
    start.open(STDIN_FILENO, files.write("in", place.input), O_RDONLY);
    start.open(STDOUT_FILENO, place.outFile.empty() ? files.write("out", "").native() : place.outFile, O_WRONLY);
    start.open(STDERR_FILENO, files.write("err", ""), O_WRONLY);
    if (place.outClosed)
        start.close(STDOUT_FILENO);
    if (!place.folder.empty())
        start.enter(place.folder);
    const int status = statusOf(start.run(words));
    return {status, place.outFile.empty() ? files.read("out") : std::string(), files.read("err")};
}

ProgramAtPipes::ProgramAtPipes(const std::vector<std::string>& words) {
    int in[2];
    int out[2];
    if (::pipe2(in, O_CLOEXEC) != 0 || ::pipe2(out, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe could be made");
    Start start;
    start.use(in[0], STDIN_FILENO);
    start.use(out[1], STDOUT_FILENO);
    pid_ = start.run(words);
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
