#pragma once

#include "files/FolderItem.h"
#include "scan/PageText.h"

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace velmarin {

/// The text layers in files beside a scan: hOCR (.hocr, .html, .htm) and ALTO (.xml), of one page or of many. A page
/// of a file of many is found by the name of the picture that the file gives for it, otherwise by its place, if the
/// file has as many pages as the scan. May be used from several threads.
class TextFiles {
  public:
    /// @param pages the pictures of a scan that is a folder, in their order
    TextFiles(const FolderItem& folder, std::vector<std::string> pages);
    /// The file beside a scan that is a file of `pageCount` pages: "book.hocr" beside "book.tif".
    TextFiles(const FolderItem& scan, std::size_t pageCount);

    /// The text of a page; nullopt if no file has it.
    std::optional<PageText> textOf(std::size_t page) const;

  private:
    /// The part of a file that has a page.
    struct Place {
        FolderItem file;
        std::uint64_t from = 0, size = 0;
    };
    using Places = std::unordered_map<std::size_t, Place>;

    /// The first page of the file that has the name of the page's picture, unless it has more than `mostPages`.
    std::optional<PageText> ownText(std::size_t page, std::size_t mostPages) const;
    Places findPlaces() const;
    void addPlaces(const FolderItem& file, Places& places) const;
    std::vector<FolderItem> filesOfManyPages() const;

    FolderItem folder_;
    std::string stem_ = {};               ///< of the scan, if it is a file
    std::vector<std::string> pages_ = {}; ///< pictures, if it is a folder
    std::size_t pageCount_;
    mutable std::once_flag searched_ = {};
    mutable Places places_ = {}; ///< pages in files of many
};

} // namespace velmarin
