#include "scan/ScanSource.h"

#include "scan/Gutter.h"
#include "scan/PageFiles.h"
#include "scan/PictureExtent.h"
#include "scan/ScannedPage.h"
#include "scan/TextGeometry.h"
#include "text/NumberText.h"
#include "view/Decoders.h"

#include <string>
#include <utility>

namespace velmarin {

namespace {

/// The pictures of a page, turned and cut. Empty if memory fails or the picture is damaged.
std::vector<EncodedPage> finished(ScannedPage page, const PageOptions& options) {
    const bool asItIs = options.turn == 0 && options.spread == Spread::None;
    if (!page.file.bytes.empty() && asItIs)
        return {std::move(page.file)};
    if (page.picture.isNil())
        page.picture = decodePictureBytes(page.file.bytes, page.file.extension).picture;
    const Picture turned = page.picture ? turnedPicture(page.picture, options.turn) : Picture();
    if (turned.isNil())
        return {};
    std::vector<Picture> parts{turned};
    if (options.spread != Spread::None && mayBeSpread(turned)) {
        const int gutter = gutterColumn(turned);
        parts = {columnsOf(turned, 0, gutter), columnsOf(turned, gutter, turned.Width())};
        if (options.spread == Spread::RightFirst)
            std::swap(parts[0], parts[1]);
    } else if (options.turn == 0 && !page.file.bytes.empty()) {
        return {std::move(page.file)};
    }
    std::vector<EncodedPage> files;
    for (const Picture& part : parts) {
        auto encoded = encodePage(part, page.encoding);
        if (!encoded)
            return {};
        files.push_back(std::move(*encoded));
    }
    return files;
}

} // namespace

std::filesystem::path ScanSource::ownFile(std::size_t) const {
    return {};
}

std::optional<PageText> ScanSource::text(std::size_t, const PageOptions&) const {
    return std::nullopt;
}

PagePictures ScanSource::takeOut(std::size_t page, const PageOptions& options,
                                 const std::filesystem::path& folder) const {
    if (options.turn == 0 && options.spread == Spread::None) {
        if (std::filesystem::path own = ownFile(page); !own.empty())
            return {.files = {std::move(own)}};
    }
    if (auto there = pageFilesIn(folder, page, options.spread); !there.empty())
        return {.files = std::move(there)};
    const auto failed = [&](const std::string& why, bool stopped) {
        return PagePictures{.result = Failure{item_, "page " + Str(static_cast<std::int64_t>(page) + 1) +
                                                         " could not be taken out: " + why},
                            .stopped = stopped};
    };
    if (options.mayContinue && !options.mayContinue())
        return failed("it was stopped", true);
    ScannedPage scannedPage = scanned(page, options, folder);
    if (!scannedPage.problem.empty())
        return failed(scannedPage.problem, scannedPage.stopped);
    const std::vector<EncodedPage> files = finished(std::move(scannedPage), options);
    if (files.empty())
        return failed("the picture is damaged or too large", false);
    return writePageFiles(folder, page, options.spread, files);
}

std::vector<std::optional<PageText>> ScanSource::textOf(std::size_t page, const PageOptions& options,
                                                        const std::vector<std::filesystem::path>& pictures) const {
    std::vector<std::optional<PageText>> texts(pictures.size());
    const std::optional<PageText> whole = pictures.empty() ? std::nullopt : text(page, options);
    if (!whole)
        return texts;
    std::vector<Extent> extents;
    for (const std::filesystem::path& picture : pictures) {
        const auto extent = pictureExtent(picture);
        if (!extent)
            return texts;
        extents.push_back(*extent);
    }
    int width = 0;
    for (const Extent& extent : extents)
        width += extent.width;
    const PageText shown = scaledText(turnedText(*whole, options.turn), width, extents[0].height);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const bool atRight = texts.size() == 2 && (i == 1) == (options.spread == Spread::LeftFirst);
        const int left = atRight ? width - extents[i].width : 0;
        texts[i] = textInColumns(shown, left, left + extents[i].width);
    }
    return texts;
}

} // namespace velmarin
