#include "RunProgram.h"

#include <fstream>
#include <iterator>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmarin::test {

ProgramRun runProgram(const std::vector<std::string>& words, const std::filesystem::path& output) {
    std::vector<char*> argv;
    for (const std::string& word : words)
        argv.push_back(const_cast<char*>(word.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, 1, output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    ::posix_spawn_file_actions_adddup2(&actions, 1, 2);
    pid_t child = -1;
    // Not a fork: the sanitizers make this process large.
    const int failed = ::posix_spawnp(&child, argv[0], &actions, nullptr, argv.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    if (failed != 0 || ::waitpid(child, &status, 0) != child)
        return {};
    return {WIFSIGNALED(status), WIFEXITED(status) ? WEXITSTATUS(status) : -1};
}

std::string textOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

} // namespace velmarin::test
