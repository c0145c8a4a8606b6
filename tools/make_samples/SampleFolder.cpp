#include "make_samples/SampleFolder.h"

#include <cerrno>
#include <cstdio>
#include <exception>
#include <map>
#include <stdexcept>

#include <sys/wait.h>
#include <unistd.h>

#include "files/SystemCalls.h"

namespace velmarin {

namespace {

namespace fs = std::filesystem;

/// Runs each job in a process of its own, at most `atOnce` at a time. Threads will not do: cairo 1.16 shares fonts
/// between them and fails when one of them drops a font that another is using. Throws std::runtime_error if a job
/// throws, after printing what it threw.
void runInProcesses(const std::vector<std::function<void()>>& jobs, std::size_t atOnce) {
    bool failed = false;
    std::size_t running = 0;
    const auto waitForOne = [&] {
        int status = 0;
        while (wait(&status) < 0 && errno == EINTR)
            continue;
        failed = failed || status != 0;
        --running;
    };
    for (const auto& job : jobs) {
        if (running == atOnce)
            waitForOne();
        if (failed)
            break;
        const pid_t child = fork();
        if (child == 0) {
            try {
                job();
                _exit(0);
            } catch (const std::exception& failure) {
                std::fprintf(stderr, "%s\n", failure.what());
                _exit(1);
            }
        }
        failed = child < 0;
        running += failed ? 0 : 1;
    }
    while (running > 0)
        waitForOne();
    if (failed)
        throw std::runtime_error("the samples could not be made");
}

void writePreferences(const fs::path& folder, const std::vector<Sample>& samples) {
    std::map<std::string, std::string> preferences;
    for (const Sample& sample : samples) {
        std::string& group = preferences[sample.group];
        if (group.empty())
            group = sample.group + "\t0\t\n";
        group += sample.name + "\t2\n"; // as wide as the window
    }
    for (const auto& [group, text] : preferences)
        writeFile(folder / group / "DictionaryPreferences.txt", text);
}

} // namespace

bool makeSampleFolder(const fs::path& target, const fs::path& dictFolder, const std::vector<Sample>& samples,
                      std::size_t atOnce, const std::function<void(const std::string&)>& tell) {
    fs::path whole = fs::absolute(target).lexically_normal();
    if (!whole.has_filename())
        whole = whole.parent_path();
    if (fs::exists(whole) && !(fs::is_directory(whole) && fs::is_empty(whole)))
        return false;
    fs::create_directories(whole.parent_path());
    const Descriptor lock = openFolder(whole.parent_path());
    if (!lock || !lockAlone(lock))
        throw std::runtime_error("another run is making samples in " + whole.parent_path().string());
    const fs::path stage = whole.parent_path() / ("." + whole.filename().string() + ".unfinished");
    fs::remove_all(stage);
    std::vector<std::function<void()>> jobs;
    jobs.reserve(samples.size());
    for (const Sample& sample : samples)
        jobs.emplace_back([&, folder = fs::path(sample.group) / sample.name] {
            makeBook(sample.make(dictFolder), stage / folder);
            tell(folder.string());
        });
    runInProcesses(jobs, atOnce);
    writePreferences(stage, samples);
    syncfs(lock.number());
    fs::rename(stage, whole);
    return true;
}

} // namespace velmarin
