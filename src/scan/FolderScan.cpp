#include "scan/FolderScan.h"

#include "files/ReadOnlyFile.h"
#include "scan/PageOrder.h"
#include "scan/ScannedPage.h"
#include "scan/TextFiles.h"
#include "store/FileNames.h"
#include "store/ImageIndex.h"
#include "text/LetterCase.h"
#include "view/Decoders.h"

#include <utility>

namespace velmarin {

namespace {

/// Formats whose files are copied as they are if they need no change, and how their extension is spelled then.
constexpr std::pair<const char*, const char*> kKeptFormats[] = {
    {"tif", "tif"}, {"tiff", "tif"}, {"jpg", "jpg"}, {"jpeg", "jpg"}, {"png", "png"}};

class FolderScan : public ScanSource {
  public:
    FolderScan(const FolderItem& folder, std::vector<std::string> names)
        : ScanSource(folder, names.size()), names_(std::move(names)), texts_(folder, names_) {}

  private:
    std::filesystem::path ownFile(std::size_t page) const override { return item().path() / names_[page]; }

    ScannedPage scanned(std::size_t page, const PageOptions&, const std::filesystem::path&) const override {
        auto bytes = readWholeFile(FolderItem(ownFile(page)));
        if (!bytes)
            return ScannedPage::failed("it could not be read");
        const std::string extension = mFiMod_GetExtensionFromFileName(names_[page]);
        DecodedPicture decoded = decodePictureBytes(*bytes, extension);
        if (decoded.picture.isNil())
            return ScannedPage::failed(decoded.reason);
        ScannedPage result{.picture = std::move(decoded.picture)};
        for (const auto& [spelling, kept] : kKeptFormats) {
            if (equalStrings(extension, spelling))
                result.file = {std::move(*bytes), kept};
        }
        if (result.file.extension == "jpg")
            result.encoding = PageEncoding::Photograph;
        return result;
    }

    std::optional<PageText> text(std::size_t page, const PageOptions&) const override { return texts_.textOf(page); }

    std::vector<std::string> names_;
    TextFiles texts_;
};

} // namespace

OpenedScan openFolderScan(const FolderItem& folder) {
    std::vector<std::string> names = pictureNames(folder);
    if (names.empty())
        return {.result = Failure{folder, "it holds no pictures"}};
    sortPages(names);
    return {.scan = std::make_unique<FolderScan>(folder, std::move(names))};
}

} // namespace velmarin
