#include <algorithm>
#include <atomic>
#include <cstdio>
#include <exception>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include <CLI/CLI.hpp>

#include "make_samples/Book.h"
#include "make_scans/ScanBook.h"
#include "make_scans/ScanFiles.h"
#include "make_scans/Scanner.h"
#include "make_scans/Typesetter.h"

namespace {

namespace fs = std::filesystem;
using namespace velmarin;

struct Order {
    std::string book, level = "ordinary", dictFolder = "/usr/share/dictd", folder, bound;
    ScanTone tone = ScanTone::Bilevel;
    std::size_t pages = 100;
    int dpi = 300;
    std::uint64_t seed = 1;
    bool spread = false, part = false, table = false;
    std::vector<std::string> varied;
    unsigned threads = std::max(std::thread::hardware_concurrency(), 1U);
};

std::string numbered(const char* pattern, std::size_t number) {
    char name[32];
    std::snprintf(name, sizeof name, pattern, number);
    return name;
}

/// Scans the pages of a book in the order of their pictures.
class ScanRun {
  public:
    ScanRun(const Order& order, const Wear& wear, const Typesetter& typesetter)
        : order_(order), wear_(wear), typesetter_(typesetter),
          count_(std::min(order.pages, typesetter.pages().size())) {}

    void run() {
        std::vector<std::thread> threads;
        for (unsigned i = 0; i < order_.threads; ++i)
            threads.emplace_back([this] {
                const std::size_t step = order_.spread ? 2 : 1;
                for (std::size_t at = next_.fetch_add(step); at < count_; at = next_.fetch_add(step))
                    writePicture(at);
            });
        for (std::thread& thread : threads)
            thread.join();
    }

    /// The names of the pictures of all pages; two of a spread share one.
    std::vector<std::string> pictures() const {
        std::vector<std::string> names;
        for (std::size_t i = 0; i < count_; ++i)
            names.push_back(nameOf(i));
        return names;
    }

  private:
    std::string nameOf(std::size_t page) const {
        return numbered("%04zu", (order_.spread ? page / 2 : page) + 1) + scanExtension(order_.tone);
    }

    Raster inkOf(std::size_t page) {
        const std::lock_guard lock(press_); // Pango's contexts are for one thread
        return page < typesetter_.pages().size() ? typesetter_.inkOf(page) : Raster();
    }

    // Page 0 is a left one in a spread, so that a picture has two pages that face each other.
    Raster scanOf(std::size_t page) {
        const bool recto = order_.spread ? page % 2 == 1 : page % 2 == 0;
        const std::size_t facing = recto ? page - 1 : page + 1;
        const std::size_t back = recto ? page + 1 : page - 1;
        return scanned({inkOf(page), inkOf(back), order_.spread ? Raster() : inkOf(facing), recto},
                       {wear_, order_.tone, order_.dpi, order_.seed * 1000003 + page});
    }

    void writePicture(std::size_t page) {
        Raster scan = scanOf(page);
        if (order_.spread && page + 1 < count_)
            scan = spreadOf(scan, scanOf(page + 1));
        if (order_.table)
            scan = onTable(scan);
        writeScan(fs::path(order_.folder) / "scan" / nameOf(page), scan, order_.tone, order_.dpi, wear_.jpegQuality);
    }

    const Order& order_;
    const Wear& wear_;
    const Typesetter& typesetter_;
    std::size_t count_;
    std::atomic<std::size_t> next_ = 0;
    std::mutex press_;
};

void make(const Order& order) {
    auto book =
        scanBook(order.book, order.dictFolder, order.pages, order.part ? std::optional(order.seed) : std::nullopt);
    const auto wear = wearOf(order.level);
    if (!book || !wear)
        throw std::runtime_error("no book or level of that name");
    for (const std::string& name : order.varied)
        if (!varyLayout(*book, name))
            throw std::runtime_error("no layout is called \"" + name + "\"");
    const Typesetter typesetter(std::move(*book), order.dpi);
    fs::create_directories(fs::path(order.folder) / "scan");
    ScanRun run(order, *wear, typesetter);
    run.run();
    const auto pictures = run.pictures();
    std::vector<PrintedPage> pages = typesetter.pages();
    pages.resize(pictures.size());
    writeTruth(order.folder, pages, pictures);
    if (!order.bound.empty()) {
        std::vector<fs::path> paths;
        for (const std::string& name : pictures)
            if (paths.empty() || paths.back().filename() != name)
                paths.push_back(fs::path(order.folder) / "scan" / name);
        bindScans(paths, fs::path(order.folder) / order.bound, order.dpi);
    }
    std::printf("%zu pages in %s\n", pictures.size(), order.folder.c_str());
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app("Makes a scan of a typeset book, worn and badly scanned, with the truth about its pages beside it.");
    Order order;
    std::string books;
    for (const std::string_view name : scanBookNames())
        books += (books.empty() ? "" : ", ") + std::string(name);
    app.add_option("BOOK", order.book, "One of " + books)->required();
    app.add_option("FOLDER", order.folder, "Gets scan/, truth.tsv and headwords.tsv")->required();
    app.add_option("--level", order.level, "clean, ordinary or hard")->capture_default_str();
    app.add_option("--tone", order.tone, "bilevel, grey or color")
        ->transform(CLI::CheckedTransformer(std::map<std::string, ScanTone>{
            {"bilevel", ScanTone::Bilevel}, {"grey", ScanTone::Grey}, {"color", ScanTone::Color}}));
    app.add_option("--pages", order.pages)->check(CLI::Range(2, 5000))->capture_default_str();
    app.add_option("--dpi", order.dpi)->check(CLI::Range(100, 1200))->capture_default_str();
    app.add_option("--seed", order.seed)->capture_default_str();
    app.add_option("--bound", order.bound,
                   "Also bind the pictures into this file in FOLDER: NAME.tif, NAME.pdf or NAME.djvu");
    app.add_option("--dict-dir", order.dictFolder, "The folder with the .index and .dict.dz files")
        ->capture_default_str();
    app.add_option("--threads", order.threads)->check(CLI::Range(1, 64));
    app.add_option("--layout", order.varied,
                   "Change the book's layout: left, right, columns, foot, no-rule, title, line-numbers")
        ->delimiter(',');
    app.add_flag("--table", order.table, "On a black table, with a color target");
    app.add_flag("--spread", order.spread, "Two pages a picture");
    app.add_flag("--part", order.part,
                 "As a part of a large book: its articles follow each other, from a place by the seed");
    CLI11_PARSE(app, argc, argv);
    try {
        make(order);
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "velmarin-make-scans: %s\n", failure.what());
        return 2;
    }
}
