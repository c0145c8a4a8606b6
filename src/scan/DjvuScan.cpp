#include "scan/DjvuScan.h"

#include "scan/DjvuText.h"
#include "scan/RawPnm.h"
#include "scan/ScanTool.h"
#include "scan/ScannedPage.h"
#include "scan/TextGeometry.h"
#include "text/NumberText.h"

#include <algorithm>
#include <charconv>

namespace velmarin {

namespace {

using namespace std::string_view_literals;

constexpr std::size_t kMostPages = 100'000;
constexpr std::int64_t kMostPixels = 300'000'000; ///< a page of 1 m by 1.5 m at 300 dpi

/// The number after `name` in djvused's output for a page; 0 if it is missing.
int numberAfter(std::string_view told, std::string_view name) {
    const std::size_t at = told.find(name);
    int number = 0;
    if (at != std::string_view::npos)
        std::from_chars(told.data() + at + name.size(), told.data() + told.size(), number);
    return number;
}

/// What a page of a DjVu file consists of.
struct DjvuPage {
    int width = 0, height = 0, dpi = 0;
    int turn = 0;      ///< degrees clockwise, to be applied for display
    bool ink = false;  ///< a 1-bit picture
    bool tone = false; ///< a photograph, or the paper or color of the ink
};

DjvuPage pageTold(std::string_view told) {
    const auto has = [&](std::string_view chunk) { return told.find(chunk) != std::string_view::npos; };
    DjvuPage page{.width = numberAfter(told, "width="), .height = numberAfter(told, "height=")};
    page.turn = (360 - 90 * (numberAfter(told, "rotation=") & 3)) % 360; // told counterclockwise
    const std::size_t dpi = told.find(" dpi");
    if (dpi != std::string_view::npos)
        page.dpi = numberAfter(told.substr(told.rfind(' ', dpi - 1)), " ");
    page.ink = has("Sjbz") || has("Smmr");
    page.tone = has("BG44") || has("FG44") || has("FGbz") || has("BGjp") || has("FGjp") || has("PM44") || has("BM44");
    return page;
}

class DjvuScan : public ScanSource {
  public:
    DjvuScan(const FolderItem& file, std::size_t pageCount, ToolSet tools)
        : ScanSource(file, pageCount), tools_(std::move(tools)) {}

  private:
    ToolAnswer ask(std::size_t page, const std::string& command, const PageOptions& options) const {
        return tools_.run(
            "djvused",
            {"-u", "-e", "select " + Str(static_cast<std::int64_t>(page) + 1) + "; " + command, item().AbsolutePath()},
            options.mayContinue);
    }

    ScannedPage scanned(std::size_t page, const PageOptions& options, const std::filesystem::path&) const override {
        const ToolAnswer told = ask(page, "size; dump", options);
        if (!told.ok())
            return {.problem = told.problem, .stopped = told.stopped};
        const DjvuPage info = pageTold(told.output);
        std::vector<std::string> arguments{"-format=pnm", "-page=" + Str(static_cast<std::int64_t>(page) + 1)};
        double scale = 1;
        if (info.ink && info.tone && info.dpi > options.dpi) {
            scale = static_cast<double>(options.dpi) / info.dpi;
            arguments.push_back("-scale=" + Str(options.dpi));
        }
        if (static_cast<double>(info.width) * scale * info.height * scale > kMostPixels)
            return ScannedPage::failed("it would have too many pixels");
        arguments.push_back(item().AbsolutePath());
        const ToolAnswer rendered = tools_.run("ddjvu", arguments, options.mayContinue);
        if (!rendered.ok())
            return {.problem = rendered.problem, .stopped = rendered.stopped};
        ScannedPage result{.picture = readRawPnm(rendered.output),
                           .encoding = info.ink ? PageEncoding::Rendered : PageEncoding::Photograph};
        return result.picture ? result : ScannedPage::failed("ddjvu gives no picture of it");
    }

    std::optional<PageText> text(std::size_t page, const PageOptions& options) const override {
        const ToolAnswer told = ask(page, "size; print-txt", options);
        if (!told.ok())
            return std::nullopt;
        const auto read =
            readDjvuText(std::string_view(told.output).substr(std::min(told.output.find('('), told.output.size())));
        return read ? std::optional(turnedText(*read, pageTold(told.output).turn)) : std::nullopt;
    }

    ToolSet tools_;
};

} // namespace

bool isDjvu(std::string_view start) {
    if (start.starts_with("AT&T"))
        start.remove_prefix(4);
    return start.size() >= 12 && start.starts_with("FORM") && start.substr(8, 3) == "DJV"sv;
}

OpenedScan openDjvuScan(const FolderItem& file, const ScanTools& tools) {
    ToolSet programs(tools, "djvulibre-bin", {"djvused", "ddjvu"});
    if (!programs.missing().empty())
        return {.result = Failure{file, programs.missing()}};
    const ToolAnswer told = programs.run("djvused", {"-e", "n", file.AbsolutePath()}, {});
    const auto pages = static_cast<std::size_t>(std::max(0, numberAfter("=" + told.output, "=")));
    if (!told.ok() || pages == 0)
        return {.result = Failure{file, told.ok() ? "it has no pages" : "it could not be read: " + told.problem}};
    if (pages > kMostPages)
        return {.result = Failure{file, "it has more than 100,000 pages"}};
    return {.scan = std::make_unique<DjvuScan>(file, pages, std::move(programs))};
}

} // namespace velmarin
