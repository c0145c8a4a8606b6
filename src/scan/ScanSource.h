#pragma once

#include "files/FolderItem.h"
#include "files/Result.h"
#include "scan/PageOptions.h"
#include "scan/PageText.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace velmarin {

struct ScannedPage;

/// A scanned book: a folder of pictures, a TIFF of many pages, a PDF or a DjVu file. It is never written to. Pages
/// count from 0. The functions may be called from several threads at a time.
class ScanSource {
  public:
    ScanSource(const ScanSource&) = delete;
    ScanSource& operator=(const ScanSource&) = delete;
    virtual ~ScanSource() = default;

    std::size_t pageCount() const { return pageCount_; }

    /// The page as finished picture files. If the scan holds it as a file of its own that needs no turning or cutting,
    /// that file, and nothing is written. Otherwise files in `folder`, which is made if missing, named after the number
    /// of the page in the scan: "p0001.tif"; "p0001a.tif" and "p0001b.tif" for a spread (only the first if the picture
    /// was not cut). Each appears whole and flushed. Files that are there already are taken as they are: remove them
    /// after a change of options.
    ///
    /// 1-bit pictures become TIFF in CCITT G4, and JPEG stays as it is, both without loss; other embedded pictures keep
    /// their pixels as PNG, or become JPEG if they were coded with loss before. What does not consist of one picture
    /// that covers the page is rendered. Turning and cutting a JPEG codes it once more.
    PagePictures takeOut(std::size_t page, const PageOptions& options, const std::filesystem::path& folder) const;

    /// The text that the scan itself has for the page, or that a file beside it has (TextFiles). One for each of
    /// `pictures`, as takeOut gave them with the same options, in pixels of that picture; nullopt if there is none.
    std::vector<std::optional<PageText>> textOf(std::size_t page, const PageOptions& options,
                                                const std::vector<std::filesystem::path>& pictures) const;

  protected:
    ScanSource(FolderItem item, std::size_t pageCount) : item_(std::move(item)), pageCount_(pageCount) {}
    const FolderItem& item() const { return item_; }

  private:
    /// The file in the scan that is the picture of the page; empty if there is none.
    virtual std::filesystem::path ownFile(std::size_t page) const;
    /// The page before it is turned and cut. What has to be written for it goes into a hidden folder inside `folder`.
    virtual ScannedPage scanned(std::size_t page, const PageOptions& options,
                                const std::filesystem::path& folder) const = 0;
    /// Its text, likewise, in a unit of its own.
    virtual std::optional<PageText> text(std::size_t page, const PageOptions& options) const;

    FolderItem item_;
    std::size_t pageCount_;
};

/// A scan, or why it cannot be used.
struct OpenedScan {
    std::unique_ptr<ScanSource> scan = {}; ///< null on failure
    Result result = {};
};

} // namespace velmarin
