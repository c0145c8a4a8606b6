#include "platform/ChildProgram.h"

#include "files/Descriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace velmarin {

namespace {

constexpr int kPollMilliseconds = 20;
constexpr std::size_t kMostErrorOutput = 4096;

struct Pipe {
    Descriptor from, to;
};

/// The last descriptor that a child replaces: after the three standard ones, those that it is given.
constexpr int kLastReplaced = 4;

/// A pipe whose ends are none of the descriptors that the child replaces.
std::optional<Pipe> makePipe() {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return std::nullopt;
    Pipe pipe{Descriptor(ends[0]), Descriptor(ends[1])};
    for (Descriptor* end : {&pipe.from, &pipe.to}) {
        if (end->number() <= kLastReplaced)
            *end = Descriptor(::fcntl(end->number(), F_DUPFD_CLOEXEC, kLastReplaced + 1));
        if (!*end)
            return std::nullopt;
    }
    return pipe;
}

/// What comes through a pipe, up to a limit. It is read without waiting.
class Collected {
  public:
    Collected(Descriptor from, std::size_t most) : from_(std::move(from)), most_(most) {
        ::fcntl(from_.number(), F_SETFL, O_NONBLOCK);
    }

    /// Reads what is in the pipe now; more than a pipe holds only while somebody goes on writing.
    void take() {
        constexpr int kMostBlocks = 64;
        char block[65536];
        for (int i = 0; i < kMostBlocks && !closed_; ++i) {
            const ssize_t got = ::read(from_.number(), block, sizeof block);
            if (got < 0 && (errno == EAGAIN || errno == EWOULDBLOCK))
                return;
            if (got < 0 && errno == EINTR)
                continue;
            closed_ = got <= 0;
            if (got > 0)
                keep({block, static_cast<std::size_t>(got)});
        }
    }

    bool overflowed() const { return overflowed_; }
    /// To wait for; -1 after its end.
    int descriptor() const { return closed_ ? -1 : from_.number(); }
    std::string&& bytes() && { return std::move(bytes_); }

  private:
    void keep(std::string_view more) {
        const std::size_t room = most_ - bytes_.size();
        overflowed_ = overflowed_ || more.size() > room;
        bytes_.append(more.substr(0, room));
    }

    Descriptor from_;
    std::size_t most_;
    std::string bytes_;
    bool closed_ = false, overflowed_ = false;
};

/// A child that leads a process group. The group is killed with the object, if not before.
class GroupLeader {
  public:
    explicit GroupLeader(pid_t pid) : pid_(pid), descriptor_(static_cast<int>(::syscall(SYS_pidfd_open, pid, 0))) {}
    GroupLeader(const GroupLeader&) = delete;
    GroupLeader& operator=(const GroupLeader&) = delete;
    ~GroupLeader() { end(); }

    /// The child is left unreaped, so that its pid cannot be reused.
    bool ended() const {
        siginfo_t info{};
        return ::waitid(P_PID, static_cast<id_t>(pid_), &info, WEXITED | WNOHANG | WNOWAIT) == 0 && info.si_pid == pid_;
    }
    /// Readable once the child has ended; -1 if the system has no such descriptors.
    int descriptor() const { return descriptor_.number(); }

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
    Descriptor descriptor_;
    int status_ = -1;
    bool waitedFor_ = false;
};

/// All that a child needs between fork and exec, where it may not allocate memory: in a program with threads another
/// one may hold the allocator's lock.
struct Start {
    const char* file = nullptr;
    const char* folder = nullptr; ///< null: the caller's
    std::vector<char*> arguments = {};
    std::array<std::pair<int, rlimit>, 4> limits = {};
    int output = -1, errors = -1, failure = -1;
    std::array<int, 2> given = {-1, -1};
};

rlim_t orUnlimited(std::uint64_t limit) {
    return limit == 0 ? RLIM_INFINITY : limit;
}

/// `words` holds the arguments.
Start startOf(const ChildProgram& program, std::vector<std::string>& words) {
    Start start{.file = program.file.c_str(), .folder = program.folder.empty() ? nullptr : program.folder.c_str()};
    for (std::string& word : words)
        start.arguments.push_back(word.data());
    start.arguments.push_back(nullptr);
    const auto seconds = static_cast<rlim_t>(program.limits.processor.count());
    const rlim_t processor = orUnlimited(seconds), memory = orUnlimited(program.limits.memory),
                 fileSize = orUnlimited(program.limits.fileSize);
    // A second between the limits: the first sends SIGXCPU, by which the end is recognized, the second SIGKILL.
    start.limits = {{{RLIMIT_CPU, {processor, seconds == 0 ? RLIM_INFINITY : seconds + 1}},
                     {RLIMIT_AS, {memory, memory}},
                     {RLIMIT_FSIZE, {fileSize, fileSize}},
                     {RLIMIT_CORE, {0, 0}}}};
    return start;
}

/// Lowers a limit of the process; what is below it already stays.
bool lowerLimit(int which, const rlimit& wanted) {
    rlimit now{};
    if (::getrlimit(static_cast<__rlimit_resource_t>(which), &now) != 0)
        return false;
    const rlimit lowered{std::min(wanted.rlim_cur, now.rlim_max), std::min(wanted.rlim_max, now.rlim_max)};
    return ::setrlimit(static_cast<__rlimit_resource_t>(which), &lowered) == 0;
}

/// In the child. Calls only functions that are safe after a fork; writes errno to `failure` if it fails.
[[noreturn]] void become(const Start& start) {
    const auto prepared = [&] {
        const int nothing = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
        if (nothing < 0 || ::setpgid(0, 0) != 0 || ::dup2(nothing, STDIN_FILENO) < 0 ||
            ::dup2(start.output, STDOUT_FILENO) < 0 || ::dup2(start.errors, STDERR_FILENO) < 0)
            return false;
        // dup2 onto itself would leave the descriptor to be closed.
        if (nothing == STDIN_FILENO)
            ::fcntl(STDIN_FILENO, F_SETFD, 0);
        // Libraries may have opened files that children inherit. Older systems do not have the call.
        ::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
        for (std::size_t i = 0; i < start.given.size(); ++i) {
            if (start.given[i] >= 0 && ::dup2(start.given[i], STDERR_FILENO + 1 + static_cast<int>(i)) < 0)
                return false;
        }
        for (const auto& [which, limit] : start.limits) {
            if (!lowerLimit(which, limit))
                return false;
        }
        if (start.folder != nullptr && ::chdir(start.folder) != 0)
            return false;
        struct sigaction standard {};
        standard.sa_handler = SIG_DFL;
        ::sigaction(SIGPIPE, &standard, nullptr);
        ::sigaction(SIGXCPU, &standard, nullptr);
        ::sigaction(SIGXFSZ, &standard, nullptr);
        // A caller that is killed does not leave it running.
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        sigset_t none;
        sigemptyset(&none);
        return ::sigprocmask(SIG_SETMASK, &none, nullptr) == 0;
    };
    if (prepared())
        ::execve(start.file, start.arguments.data(), environ);
    const int error = errno;
    [[maybe_unused]] const ssize_t ignored = ::write(start.failure, &error, sizeof error);
    ::_exit(127);
}

/// Starts the program; nullopt if that fails.
std::optional<pid_t> start(const ChildProgram& program, const Descriptor& output, const Descriptor& errors) {
    std::vector<std::string> words{program.file.filename().string()};
    words.insert(words.end(), program.arguments.begin(), program.arguments.end());
    std::optional<Pipe> failure = makePipe();
    if (!failure)
        return std::nullopt;
    Start prepared = startOf(program, words);
    prepared.output = output.number();
    prepared.errors = errors.number();
    prepared.failure = failure->to.number();
    std::array<Descriptor, 2> given;
    for (std::size_t i = 0; i < program.descriptors.size() && i < given.size(); ++i) {
        given[i] = Descriptor(::fcntl(program.descriptors[i], F_DUPFD_CLOEXEC, kLastReplaced + 1));
        if (!given[i])
            return std::nullopt;
        prepared.given[i] = given[i].number();
    }

    // No handler of the parent's may run in the child.
    sigset_t all, before;
    sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    const pid_t pid = ::fork();
    if (pid == 0)
        become(prepared);
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    if (pid < 0)
        return std::nullopt;
    failure->to = Descriptor();
    int error = 0;
    ssize_t got = 0;
    do
        got = ::read(failure->from.number(), &error, sizeof error);
    while (got < 0 && errno == EINTR);
    if (got == 0)
        return pid;
    ::waitpid(pid, nullptr, 0);
    return std::nullopt;
}

ChildResult resultOf(int status) {
    if (WIFEXITED(status))
        return {.end = ChildResult::End::Exited, .exitStatus = WEXITSTATUS(status)};
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU)
        return {.end = ChildResult::End::TooLong};
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGXFSZ)
        return {.end = ChildResult::End::TooMuch};
    return {.end = ChildResult::End::Killed};
}

/// Waits for the end of the child and collects its output.
ChildResult await(GroupLeader& child, const ChildProgram& program, Collected& output, Collected& errors) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point started = Clock::now();
    while (true) {
        // Checked before the pipes are read, so that all output of an ended child is in them. Processes that it left
        // running keep the pipes open, but are not waited for.
        const bool ended = child.ended();
        output.take();
        errors.take();
        if (output.overflowed())
            return {.end = ChildResult::End::TooMuch};
        if (ended)
            return resultOf(child.end());
        if (program.mayContinue && !program.mayContinue())
            return {.end = ChildResult::End::Stopped};
        if (program.limits.wall.count() != 0 && Clock::now() - started > program.limits.wall)
            return {.end = ChildResult::End::TooLong};
        pollfd waited[] = {{.fd = output.descriptor(), .events = POLLIN, .revents = 0},
                           {.fd = errors.descriptor(), .events = POLLIN, .revents = 0},
                           {.fd = child.descriptor(), .events = POLLIN, .revents = 0}};
        ::poll(waited, std::size(waited), kPollMilliseconds);
    }
}

} // namespace

std::optional<std::filesystem::path> programOnPath(std::string_view name, std::string_view searchPath) {
    while (!searchPath.empty()) {
        const std::string_view folder = searchPath.substr(0, searchPath.find(':'));
        searchPath.remove_prefix(std::min(folder.size() + 1, searchPath.size()));
        const std::filesystem::path file = std::filesystem::path(folder) / name;
        std::error_code error;
        if (folder.starts_with('/') && std::filesystem::is_regular_file(file, error) &&
            ::access(file.c_str(), X_OK) == 0)
            return file;
    }
    return std::nullopt;
}

std::string searchPathOfEnvironment() {
    const char* path = std::getenv("PATH");
    return path == nullptr ? "" : path;
}

ChildResult runChild(const ChildProgram& program) {
    std::optional<Pipe> outputPipe = makePipe(), errorPipe = makePipe();
    if (!outputPipe || !errorPipe)
        return {};
    const auto pid = start(program, outputPipe->to, errorPipe->to);
    outputPipe->to = Descriptor();
    errorPipe->to = Descriptor();
    if (!pid)
        return {};
    GroupLeader child(*pid);
    Collected output(std::move(outputPipe->from), program.limits.output);
    Collected errors(std::move(errorPipe->from), kMostErrorOutput);
    ChildResult result = await(child, program, output, errors);
    child.end();
    result.errors = std::move(errors).bytes();
    if (result.end == ChildResult::End::Exited)
        result.output = std::move(output).bytes();
    return result;
}

} // namespace velmarin
