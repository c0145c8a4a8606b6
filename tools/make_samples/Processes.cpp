#include "make_samples/Processes.h"

#include <cstdio>
#include <exception>
#include <map>
#include <stdexcept>

#include <sys/wait.h>
#include <unistd.h>

namespace velmarin {

namespace {

[[noreturn]] void runAndExit(const std::function<void(std::size_t)>& body, std::size_t i) {
    int status = 1;
    try {
        body(i);
        status = 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
    }
    _exit(status);
}

} // namespace

void inProcesses(std::size_t count, std::size_t atOnce, const std::function<void(std::size_t)>& body,
                 const std::function<void(std::size_t)>& done) {
    std::map<pid_t, std::size_t> running;
    bool failed = false;
    std::size_t next = 0;
    while ((next < count && !failed) || !running.empty()) {
        if (next < count && !failed && running.size() < atOnce) {
            const pid_t child = fork();
            if (child == 0)
                runAndExit(body, next);
            failed = child < 0;
            if (!failed)
                running[child] = next++;
            continue;
        }
        int status = 0;
        const auto ended = running.find(wait(&status));
        if (ended == running.end())
            continue;
        if (status == 0)
            done(ended->second);
        failed = failed || status != 0;
        running.erase(ended);
    }
    if (failed)
        throw std::runtime_error("the samples could not be made");
}

} // namespace velmarin
