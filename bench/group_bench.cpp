// Opening a group, and its first and later queries: on one core and on all.

#include "MadeDictionaries.h"
#include "search/DictionarySearch.h"
#include "store/Group.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <map>
#include <string>

#include <malloc.h>
#include <sched.h>
#include <unistd.h>

namespace {

using namespace velmarin;
using namespace velmarin::bench;
namespace fs = std::filesystem;

/// A group of dictionaries of different words, made at the first use.
const fs::path& group(std::size_t dictionaries, std::size_t lines) {
    static const ScratchFolder folder;
    static std::map<std::pair<std::size_t, std::size_t>, fs::path> made;
    fs::path& path = made[{dictionaries, lines}];
    if (path.empty()) {
        path = folder.path() / (std::to_string(dictionaries) + "x" + std::to_string(lines));
        const auto english = letters('a', 'z');
        for (std::size_t i = 0; i < dictionaries; ++i)
            writeDictionary(path / ("Dictionary " + std::to_string(i)),
                            sortedWords(lines, english, 5, 13, static_cast<unsigned>(i)), "");
    }
    return path;
}

/// Keeps the process on as many cores as told while it lives.
class OnCores {
  public:
    explicit OnCores(int count) {
        sched_getaffinity(0, sizeof before_, &before_);
        cpu_set_t few;
        CPU_ZERO(&few);
        for (int cpu = 0; cpu < CPU_SETSIZE && CPU_COUNT(&few) < count; ++cpu)
            if (CPU_ISSET(cpu, &before_))
                CPU_SET(cpu, &few);
        sched_setaffinity(0, sizeof few, &few);
    }
    ~OnCores() { sched_setaffinity(0, sizeof before_, &before_); }
    OnCores(const OnCores&) = delete;
    OnCores& operator=(const OnCores&) = delete;

  private:
    cpu_set_t before_{};
};

constexpr std::size_t kLines = 200'000;

/// Processor time of all threads and real time; the arguments are the number of dictionaries, of lines, of cores.
void open(benchmark::State& state) {
    const FolderItem folder(group(static_cast<std::size_t>(state.range(0)), static_cast<std::size_t>(state.range(1))));
    const OnCores cores(static_cast<int>(state.range(2)));
    for (auto _ : state) {
        Group read = readGroup(folder, {.findTxtLines = true, .onProgress = {}});
        if (std::ssize(read.dictionaries) != state.range(0))
            state.SkipWithError("dictionaries are missing");
        state.PauseTiming();
        read = {};
        state.ResumeTiming();
    }
}

/// The memory of the process that is in use, in bytes.
std::size_t resident() {
    malloc_trim(0);
    std::size_t size = 0, pages = 0;
    std::ifstream("/proc/self/statm") >> size >> pages;
    return pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

/// A query in every dictionary of a group. Before the first ones, all is read again.
void query(benchmark::State& state, bool first) {
    const FolderItem folder(group(static_cast<std::size_t>(state.range(0)), static_cast<std::size_t>(state.range(1))));
    const std::size_t before = resident();
    Group read = readGroup(folder, {.findTxtLines = true, .onProgress = {}});
    std::size_t words = 0, lines = 0;
    for (const auto& item : read.dictionaries) {
        lines += item->IND.size();
        for (std::size_t i = 0; i < item->IND.size(); ++i)
            words += item->IND[i].size();
    }
    state.counters["memory/allowed"] = static_cast<double>(resident() - before) /
                                       (1.3 * static_cast<double>(words) + 4.0 * static_cast<double>(lines));
    for (auto _ : state) {
        if (first) {
            state.PauseTiming();
            read = readGroup(folder, {.findTxtLines = true, .onProgress = {}});
            state.ResumeTiming();
        }
        for (const auto& item : read.dictionaries)
            benchmark::DoNotOptimize(searchDictionary("palimpsest", *item, SearchForm::List));
    }
}

} // namespace

BENCHMARK(open)
    ->Args({100, kLines, 1})
    ->Args({100, kLines, 2})
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);
BENCHMARK(open)
    ->Args({100, 2000, 2})
    ->Args({200, 2000, 2})
    ->Args({500, 2000, 2})
    ->Args({1000, 2000, 2})
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK_CAPTURE(query, first, true)->Args({100, kLines})->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(query, later, false)
    ->Args({100, kLines})
    ->Args({1000, 2000})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);

BENCHMARK_MAIN();
