#include "side/ScriptRun.h"

#include "files/Descriptor.h"

#include <cerrno>
#include <csignal>
#include <optional>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>

extern char** environ;

namespace velmarin {

namespace {

constexpr int kPollMilliseconds = 20;

/// A child that leads a process group. The group is killed with the object, if not before.
class GroupLeader {
  public:
    explicit GroupLeader(pid_t pid) : pid_(pid) {}
    GroupLeader(const GroupLeader&) = delete;
    GroupLeader& operator=(const GroupLeader&) = delete;
    ~GroupLeader() { end(); }

    /// The child is left unreaped, so that its pid cannot be reused.
    bool ended() const {
        siginfo_t info{};
        return ::waitid(P_PID, static_cast<id_t>(pid_), &info, WEXITED | WNOHANG | WNOWAIT) == 0 && info.si_pid == pid_;
    }

    /// Kills the group, and returns the child's status as waitpid gives it.
    int end() {
        if (waitedFor_)
            return status_;
        ::kill(-pid_, SIGKILL);
        while (::waitpid(pid_, &status_, 0) < 0 && errno == EINTR) {
        }
        waitedFor_ = true;
        return status_;
    }

  private:
    pid_t pid_;
    int status_ = -1;
    bool waitedFor_ = false;
};

/// Starts `sh script` with `output` as its standard output; nullopt if that fails.
std::optional<pid_t> start(const std::filesystem::path& script, int output) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);

    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    sigaddset(&signals, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &signals);

    std::string shell = "sh";
    std::string path = script.native();
    char* arguments[] = {shell.data(), path.data(), nullptr};
    pid_t pid = 0;
    const int error = ::posix_spawn(&pid, "/bin/sh", &actions, &attributes, arguments, environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return error == 0 ? std::optional(pid) : std::nullopt;
}

enum class Reading { More, Nothing, Ended };

/// Reads what is in the pipe, without waiting.
Reading take(int pipe, std::string& output, std::size_t most) {
    char block[65536];
    while (output.size() <= most) {
        const ssize_t got = ::read(pipe, block, sizeof block);
        if (got > 0)
            output.append(block, static_cast<std::size_t>(got));
        else if (got == 0)
            return Reading::Ended;
        else if (errno != EINTR)
            return errno == EAGAIN || errno == EWOULDBLOCK ? Reading::Nothing : Reading::Ended;
    }
    return Reading::More;
}

} // namespace

ScriptResult runScript(const std::filesystem::path& script, const std::function<bool()>& mayContinue,
                       std::size_t mostOutput) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return {};
    const Descriptor from(ends[0]);
    Descriptor to(ends[1]);
    ::fcntl(from.number(), F_SETFL, O_NONBLOCK);
    const auto pid = start(script, to.number());
    to = Descriptor();
    if (!pid)
        return {};

    GroupLeader child(*pid);
    ScriptResult result;
    bool closed = false;
    while (true) {
        // Checked before the pipe is read, so that all output of an ended child is in it. Processes that it left
        // running keep the pipe open, but are not waited for.
        const bool ended = child.ended();
        if (!closed)
            closed = take(from.number(), result.output, mostOutput) == Reading::Ended;
        if (result.output.size() > mostOutput)
            return {.end = ScriptResult::End::TooMuch, .exitStatus = -1, .output = {}};
        if (ended)
            break;
        if (!mayContinue())
            return {.end = ScriptResult::End::Stopped, .exitStatus = -1, .output = {}};
        pollfd waited{.fd = closed ? -1 : from.number(), .events = POLLIN, .revents = 0};
        ::poll(&waited, 1, kPollMilliseconds);
    }
    const int status = child.end();
    if (!WIFEXITED(status))
        return {.end = ScriptResult::End::Killed, .exitStatus = -1, .output = {}};
    result.end = ScriptResult::End::Exited;
    result.exitStatus = WEXITSTATUS(status);
    return result;
}

} // namespace velmarin
