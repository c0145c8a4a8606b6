#include "RunCli.h"

#include <csignal>
#include <stdexcept>

#include <fcntl.h>
#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmarin::test {

namespace {

int waitFor(int pid) {
    int status = 0;
    while (::waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

/// In the child: never returns.
[[noreturn]] void become(const std::vector<std::string>& arguments, const CliPlace& place, int in, int out, int err) {
    std::vector<char*> argv = {const_cast<char*>("velmarin-cli")};
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    ::signal(SIGPIPE, SIG_DFL);
    const bool moved = place.folder.empty() || ::chdir(place.folder.c_str()) == 0;
    ::dup2(in, STDIN_FILENO);
    if (place.outClosed)
        ::close(STDOUT_FILENO);
    else
        ::dup2(out, STDOUT_FILENO);
    if (err >= 0)
        ::dup2(err, STDERR_FILENO);
    constexpr unsigned kNobody = 65534;
    const bool lowered = !place.withoutRights || ::geteuid() != 0 ||
                         (::setgroups(0, nullptr) == 0 && ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
    if (moved && lowered)
        ::execv(VELMARIN_CLI, argv.data());
    ::_exit(127);
}

int openOrThrow(const std::filesystem::path& path, int flags) {
    const int descriptor = ::open(path.c_str(), flags | O_CLOEXEC, 0600);
    if (descriptor < 0)
        throw std::runtime_error("could not open " + path.string());
    return descriptor;
}

} // namespace

CliRun runCli(const std::vector<std::string>& arguments, const CliPlace& place) {
    const TempFolder files;
    const int in = openOrThrow(files.write("in", place.input), O_RDONLY);
    const int out = openOrThrow(place.outFile.empty() ? files.path() / "out" : std::filesystem::path(place.outFile),
                                O_WRONLY | O_CREAT);
    const int err = openOrThrow(files.path() / "err", O_WRONLY | O_CREAT);
    const int pid = ::fork();
    if (pid == 0)
        become(arguments, place, in, out, err);
    for (const int descriptor : {in, out, err})
        ::close(descriptor);
    CliRun run;
    run.status = waitFor(pid);
    run.out = place.outFile.empty() ? files.read("out") : std::string();
    run.err = files.read("err");
    return run;
}

CliAtPipes::CliAtPipes(const std::vector<std::string>& arguments, const CliPlace& place) {
    int in[2];
    int out[2];
    if (::pipe2(in, O_CLOEXEC) != 0 || ::pipe2(out, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe could be made");
    pid_ = ::fork();
    if (pid_ == 0)
        become(arguments, place, in[0], out[1], -1);
    ::close(in[0]);
    ::close(out[1]);
    toIt_ = in[1];
    fromIt_ = out[0];
}

CliAtPipes::~CliAtPipes() {
    closeInput();
    closeOutput();
    if (pid_ > 0)
        waitFor(pid_);
}

void CliAtPipes::write(const std::string& text) const {
    if (::write(toIt_, text.data(), text.size()) != static_cast<ssize_t>(text.size()))
        throw std::runtime_error("the program did not take its input");
}

std::string CliAtPipes::readLine() const {
    std::string line;
    for (char c = 0; c != '\n' && ::read(fromIt_, &c, 1) == 1;)
        line += c;
    return line;
}

void CliAtPipes::closeInput() {
    if (toIt_ >= 0)
        ::close(toIt_);
    toIt_ = -1;
}

void CliAtPipes::closeOutput() {
    if (fromIt_ >= 0)
        ::close(fromIt_);
    fromIt_ = -1;
}

int CliAtPipes::status() {
    const int status = waitFor(pid_);
    pid_ = -1;
    return status;
}

} // namespace velmarin::test
