// A search in list mode, from Return to the filled list, beside the bare selection rule on the same dictionaries.

#include "MadeDictionaries.h"
#include "platform/QtHost.h"
#include "platform/QtText.h"
#include "search/DictionarySearch.h"
#include "search/QueryBar.h"
#include "shell/App.h"
#include "shell/Application.h"
#include "shell/MainWindow.h"

#include <benchmark/benchmark.h>

#include <QLineEdit>

namespace {

using namespace velmarin;
using namespace velmarin::bench;

constexpr std::size_t kDictionaries = 1000;
constexpr std::size_t kLines = 2000;

/// The program with one group, which its first window shows.
struct Running {
    ScratchFolder folder;
    UnwatchedHost host;
    std::unique_ptr<App> app;

    Running() {
        const auto english = letters('a', 'z');
        for (std::size_t i = 0; i < kDictionaries; ++i)
            writeDictionary(folder.path() / "DictionaryFolder" / "Many" / ("Dictionary " + std::to_string(i)),
                            sortedWords(kLines, english, 5, 13, static_cast<unsigned>(i)), "");
        qputenv("XDG_CONFIG_HOME", (folder.path() / "config").c_str());
        app = std::make_unique<App>(host, FolderItem(folder.path()), "1.0");
        app->Event_Open();
        QApplication::processEvents();
    }
    MainWindow& window() { return app->windows().window(0); }
};

Running* running = nullptr;

void list(benchmark::State& state) {
    MainWindow& window = running->window();
    if (window.group().pDictionaryItem.size() != kDictionaries)
        state.SkipWithError("the group is not open");
    std::size_t round = 0;
    for (auto _ : state) {
        window.search(round++ % 2 == 0 ? "palimpsest" : "quire");
        QApplication::processEvents();
    }
}

void rule(benchmark::State& state) {
    for (auto _ : state)
        for (const auto& item : running->window().group().pDictionaryItem)
            benchmark::DoNotOptimize(searchDictionary("palimpsest", *item, SearchForm::List));
}

} // namespace

BENCHMARK(list)->Unit(benchmark::kMillisecond);
BENCHMARK(rule)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    velmarin::Application qt(argc, argv);
    Running made;
    running = &made;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    for (QWidget* widget : QApplication::topLevelWidgets())
        widget->close();
    made.app.reset();
}
