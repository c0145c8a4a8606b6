#include "scan/PdfScan.h"

#include "files/ReadOnlyFile.h"
#include "files/StagedMembers.h"
#include "files/SystemCalls.h"
#include "scan/PageLikeness.h"
#include "scan/PdfTold.h"
#include "scan/RawPnm.h"
#include "scan/ScanTool.h"
#include "scan/ScannedPage.h"
#include "scan/TextGeometry.h"
#include "scan/XmlText.h"
#include "text/NumberText.h"
#include "view/Decoders.h"
#include "view/PixTools.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <system_error>

namespace velmarin {

namespace {

constexpr std::size_t kMostPages = 100'000;
constexpr double kMostPixels = 300e6; ///< a page of 1 m by 1.5 m at 300 dpi
constexpr double kPointsPerInch = 72;

/// Whether every pixel is white.
bool isBlank(const Picture& picture) {
    int blank = 0;
    if (picture.depth() != 1)
        return false; // the depth is the smallest that holds the pixels
    return pixZero(picture.pix(), &blank) == 0 && blank != 0;
}

/// Whether a picture may be taken as it is, by its kind and size.
bool isUsable(const PdfImage& image) {
    return (image.type == "image" || image.type == "stencil") && image.width > 0 && image.height > 0 &&
           static_cast<double>(image.width) * image.height <= kMostPixels;
}

/// Whether pdfimages can write the picture there, in several threads: on a full disk it succeeds with half a picture.
bool hasRoomFor(const PdfImage& image, const std::filesystem::path& folder) {
    constexpr std::uintmax_t kBytesOfColor = 3, kPixelsOfInk = 8, kAtOnce = 4;
    const auto pixels = static_cast<std::uintmax_t>(image.width) * static_cast<std::uintmax_t>(image.height);
    std::error_code error;
    const std::uintmax_t room = std::filesystem::space(folder, error).available;
    return error || room / kAtOnce > (image.ink ? pixels / kPixelsOfInk : pixels * kBytesOfColor);
}

/// One page of a PDF, which is looked at in steps that can each be stopped.
class PdfPageReader {
  public:
    PdfPageReader(const ToolSet& tools, const FolderItem& file, std::size_t page, const PageOptions& options)
        : tools_(tools), file_(file.AbsolutePath()), number_(Str(static_cast<std::int64_t>(page) + 1)),
          options_(options) {}

    ScannedPage read(const std::filesystem::path& folder) const {
        const ToolAnswer told = run("pdfinfo", {"-box"});
        if (!told.ok())
            return failed(told);
        const PdfPage page = pdfPage(told.output);
        if (page.width <= 0 || page.height <= 0)
            return ScannedPage::failed("it is not in the file");
        const ToolAnswer list = run("pdfimages", {"-list"});
        if (list.stopped)
            return failed(list);
        const std::vector<PdfImage> images = pdfImages(list.output);
        if (list.ok() && images.size() == 1 && isUsable(images.front())) {
            if (!hasRoomFor(images.front(), folder))
                return ScannedPage::failed(errorInWords(ENOSPC));
            ScannedPage whole = embedded(images.front(), page, folder);
            if (whole.problem.empty() || whole.stopped)
                return whole;
        }
        return rendered(page);
    }

    std::optional<PageText> text() const {
        const ToolAnswer told = run("pdfinfo", {"-box"});
        const ToolAnswer words = told.ok() ? run("pdftotext", {"-cropbox", "-bbox-layout"}, {"-"}) : told;
        auto read = words.ok() ? readPdfText(words.output) : std::nullopt;
        if (!read || read->lines.empty())
            return std::nullopt;
        if (pdfPage(told.output).turn % 180 != 0)
            std::swap(read->width, read->height);
        return read;
    }

  private:
    ToolAnswer run(const std::string& program, std::vector<std::string> options, std::vector<std::string> target = {},
                   const std::filesystem::path& folder = {}) const {
        options.insert(options.end(), {"-f", number_, "-l", number_, file_});
        options.insert(options.end(), target.begin(), target.end());
        return tools_.run(program, std::move(options), options_.mayContinue, folder);
    }

    static ScannedPage failed(const ToolAnswer& answer) {
        return {.problem = answer.problem, .stopped = answer.stopped};
    }

    ToolAnswer render(double dpi, std::vector<std::string> more) const {
        more.insert(more.end(), {"-cropbox", "-hide-annotations", "-r", Format(dpi, "0.###")});
        return run("pdftoppm", std::move(more));
    }

    ScannedPage rendered(const PdfPage& page) const {
        const double dpi = options_.dpi;
        if (page.width * dpi / kPointsPerInch * (page.height * dpi / kPointsPerInch) > kMostPixels)
            return ScannedPage::failed("it is " + inches(page.width) + " by " + inches(page.height) +
                                       " inches large, which is too much for " + Str(options_.dpi) + " dpi");
        const ToolAnswer answer = render(dpi, {});
        if (!answer.ok())
            return failed(answer);
        Picture picture = readRawPnm(answer.output);
        if (picture.isNil())
            return ScannedPage::failed("pdftoppm gives no picture of it");
        // pdftoppm succeeds with a white page if it can read nothing of it.
        if (!answer.errors.empty() && isBlank(picture))
            return ScannedPage::failed("pdftoppm: " + firstErrorLine(answer.errors));
        return {.picture = std::move(picture), .encoding = PageEncoding::Rendered};
    }

    static std::string inches(double points) { return Format(std::round(points / kPointsPerInch), "0"); }

    /// The only picture on the page, without loss, if it looks as the page does.
    ScannedPage embedded(const PdfImage& image, const PdfPage& page, const std::filesystem::path& folder) const {
        ScannedPage taken = extracted(image, folder);
        if (!taken.problem.empty())
            return taken;
        const int longer = std::max(taken.picture.Width(), taken.picture.Height());
        // poppler makes a stencil darker when it reduces it.
        const int side = image.type == "stencil" ? longer : std::min(kLikenessSide, longer);
        const ToolAnswer small = render(side * kPointsPerInch / std::max(page.width, page.height), {"-gray"});
        if (!small.ok())
            return failed(small);
        const Picture shown = readRawPnm(small.output);
        const auto likeness = shown ? likenessOf(taken.picture, shown) : std::nullopt;
        if (!likeness)
            return ScannedPage::failed("the picture is not the page");
        if (likeness->turn == 0 && !likeness->inverted)
            return taken;
        taken.file = {};
        taken.picture = turnedPicture(taken.picture, likeness->turn);
        if (taken.picture && likeness->inverted)
            taken.picture = Picture::adopt(pixInvert(nullptr, taken.picture.pix()));
        return taken.picture ? taken : ScannedPage::failed("there is not enough memory");
    }

    /// The only picture on the page, as pdfimages writes it into a hidden folder. A JPEG comes as a file, too.
    ScannedPage extracted(const PdfImage& image, const std::filesystem::path& folder) const {
        if (!FolderItem(folder).CreateAsFolder())
            return ScannedPage::failed("no folder for it can be made: " + errorInWords(errno));
        const auto staged = StagedMembers::in(folder);
        if (!staged)
            return ScannedPage::failed("no folder for it can be made: " + errorInWords(errno));
        const std::filesystem::path hidden = staged->placeOf("image").parent_path();
        const ToolAnswer answer = run("pdfimages", {"-j"}, {"image"}, hidden);
        if (!answer.ok())
            return failed(answer);
        if (const auto jpeg = readWholeFile(FolderItem(hidden / "image-000.jpg"))) {
            DecodedPicture decoded = decodePictureBytes(*jpeg, "jpg");
            if (decoded.picture.isNil() || !decoded.reason.empty())
                return ScannedPage::failed("the picture is damaged");
            return {
                .file = {*jpeg, "jpg"}, .picture = std::move(decoded.picture), .encoding = PageEncoding::Photograph};
        }
        for (const char* name : {"image-000.pbm", "image-000.ppm"}) {
            const auto bytes = readWholeFile(FolderItem(hidden / name));
            Picture picture = bytes ? readRawPnm(*bytes) : Picture();
            if (picture)
                return {.picture = std::move(picture),
                        .encoding = image.coding == "jpx" || image.coding == "jpeg" ? PageEncoding::Photograph
                                                                                    : PageEncoding::Lossless};
        }
        return ScannedPage::failed("pdfimages gives no picture of it");
    }

    const ToolSet& tools_;
    std::string file_, number_;
    const PageOptions& options_;
};

class PdfScan : public ScanSource {
  public:
    PdfScan(const FolderItem& file, std::size_t pageCount, ToolSet tools)
        : ScanSource(file, pageCount), tools_(std::move(tools)) {}

  private:
    ScannedPage scanned(std::size_t page, const PageOptions& options,
                        const std::filesystem::path& folder) const override {
        return PdfPageReader(tools_, item(), page, options).read(folder);
    }
    std::optional<PageText> text(std::size_t page, const PageOptions& options) const override {
        return PdfPageReader(tools_, item(), page, options).text();
    }

    ToolSet tools_;
};

} // namespace

OpenedScan openPdfScan(const FolderItem& file, const ScanTools& tools) {
    ToolSet programs(tools, "poppler-utils", {"pdfinfo", "pdfimages", "pdftoppm", "pdftotext"});
    if (!programs.missing().empty())
        return {.result = Failure{file, programs.missing()}};
    const ToolAnswer told = programs.run("pdfinfo", {file.AbsolutePath()}, {});
    if (!told.ok())
        return {.result = Failure{file, "it could not be read: " + told.problem}};
    const std::size_t pages = pdfPageCount(told.output);
    if (pages == 0 || pages > kMostPages)
        return {.result = Failure{file, pages == 0 ? "it has no pages" : "it has more than 100,000 pages"}};
    return {.scan = std::make_unique<PdfScan>(file, pages, std::move(programs))};
}

} // namespace velmarin
