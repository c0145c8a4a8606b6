#include "make_samples/SampleFolder.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <exception>
#include <map>
#include <stdexcept>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

#include "files/Leftovers.h"
#include "files/StagedMembers.h"
#include "files/SystemCalls.h"
#include "store/GroupPreferences.h"

namespace velmarin {

namespace {

namespace fs = std::filesystem;

using Job = std::function<void(const Sample&)>;

[[noreturn]] void runAndExit(const Job& job, const Sample& sample) {
    try {
        job(sample);
        _exit(0);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        _exit(1);
    }
}

/// Runs the job of each sample in a process of its own, at most one a core at a time. Threads will not do: cairo 1.16
/// shares fonts between them and fails when one of them drops a font that another is using. Throws std::runtime_error
/// if a job throws, after printing what it threw.
void runInProcesses(const std::vector<Sample>& samples, const Job& job) {
    const std::size_t atOnce = std::max(std::thread::hardware_concurrency(), 1U);
    bool failed = false;
    std::size_t next = 0;
    for (std::size_t running = 0; running > 0 || (next < samples.size() && !failed);) {
        if (next < samples.size() && !failed && running < atOnce) {
            const pid_t child = fork();
            if (child == 0)
                runAndExit(job, samples[next]);
            failed = child < 0;
            running += failed ? 0 : 1;
            ++next;
        } else if (int status = 0; wait(&status) > 0) {
            failed = failed || status != 0;
            --running;
        }
    }
    if (failed)
        throw std::runtime_error("the samples could not be made");
}

void writePreferences(const fs::path& folder, const std::vector<Sample>& samples) {
    constexpr int fitsTheWidth = 2;
    std::map<std::string, GroupPreferences> groups;
    for (const Sample& sample : samples) {
        groups[sample.group].groupName = sample.group;
        groups[sample.group].dictionaries.push_back({sample.name, fitsTheWidth});
    }
    for (const auto& [group, preferences] : groups)
        if (const Result written = writeGroupPreferences(FolderItem(folder / group), preferences); !written)
            throw std::runtime_error(written.failure().message());
}

} // namespace

bool makeSampleFolder(const fs::path& target, const fs::path& dictFolder, const std::vector<Sample>& samples) {
    const fs::path whole = (fs::absolute(target) / "").lexically_normal().parent_path();
    if (fs::exists(whole) && !(fs::is_directory(whole) && fs::is_empty(whole)))
        return false;
    fs::create_directories(whole.parent_path());
    Work work;
    clearLeftovers(whole.parent_path(), work);
    auto staged = StagedMembers::in(whole.parent_path());
    if (!staged)
        throw std::runtime_error("cannot write to " + whole.parent_path().string());
    const std::string name = whole.filename().string();
    runInProcesses(samples, [&](const Sample& sample) {
        const fs::path folder = fs::path(sample.group) / sample.name;
        makeBook(sample.make(dictFolder), staged->placeOf(name) / folder);
        std::printf("%s\n", folder.c_str());
        std::fflush(stdout);
    });
    writePreferences(staged->placeOf(name), samples);
    syncfs(openFolder(whole.parent_path()).number());
    if (!staged->moveTo(name, whole))
        throw std::runtime_error("cannot rename a folder to " + whole.string() + ": " + errorInWords(errno));
    return true;
}

} // namespace velmarin
