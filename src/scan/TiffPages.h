#pragma once

#include "files/FolderItem.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velmarin {

/// Where the pages of a TIFF file begin, in their order. Reduced pictures and masks of other pages are left out. A
/// chain that returns to itself or cannot be read ends there, with the end of the file as a last page, which tiffPage
/// cannot read, so that the loss is told; at most `most` pages.
std::vector<std::uint64_t> tiffPages(const FolderItem& file, std::size_t most);

/// A page of a TIFF as a file of its own.
struct TiffPage {
    std::string bytes;
    /// Whether it is stored as pages are kept: 1 bit in CCITT G4, or JPEG.
    bool kept = false;
    bool jpeg = false;
};

/// The page that begins at `offset`, its data copied as they are; nullopt if they cannot be read. Source: TIFF 6.0
/// (Adobe, 1992).
std::optional<TiffPage> tiffPage(const FolderItem& file, std::uint64_t offset);

} // namespace velmarin
