#include "scan/TiffScan.h"

#include "scan/ScannedPage.h"
#include "scan/TextFiles.h"
#include "scan/TiffPages.h"
#include "view/Decoders.h"

namespace velmarin {

namespace {

constexpr std::size_t kMostPages = 100'000;

class TiffScan : public ScanSource {
  public:
    TiffScan(const FolderItem& file, std::vector<std::uint64_t> pages)
        : ScanSource(file, pages.size()), pages_(std::move(pages)), texts_(file, pages_.size()) {}

  private:
    ScannedPage scanned(std::size_t page, const PageOptions&, const std::filesystem::path&) const override {
        std::optional<TiffPage> copy = tiffPage(item(), pages_[page]);
        if (!copy)
            return ScannedPage::failed("its data cannot be read");
        DecodedPicture decoded = decodePictureBytes(copy->bytes, "tif");
        if (decoded.picture.isNil())
            return ScannedPage::failed(decoded.reason);
        ScannedPage result{.picture = std::move(decoded.picture),
                           .encoding = copy->jpeg ? PageEncoding::Photograph : PageEncoding::Lossless};
        if (copy->kept)
            result.file = {std::move(copy->bytes), "tif"};
        return result;
    }

    std::optional<PageText> text(std::size_t page, const PageOptions&) const override { return texts_.textOf(page); }

    std::vector<std::uint64_t> pages_;
    TextFiles texts_;
};

} // namespace

OpenedScan openTiffScan(const FolderItem& file) {
    std::vector<std::uint64_t> pages = tiffPages(file, kMostPages);
    if (pages.empty())
        return {.result = Failure{file, "it could not be read: it holds no pictures"}};
    return {.scan = std::make_unique<TiffScan>(file, std::move(pages))};
}

} // namespace velmarin
