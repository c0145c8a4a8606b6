#pragma once

#include "cli/Finding.h"
#include "cli/PictureNames.h"
#include "files/FolderListing.h"
#include "store/PageList.h"

#include <optional>
#include <vector>

namespace velmarin {

struct PageListSummary {
    std::string name; ///< of the page list, as findings show it
    ImageDictionaryMap pages;
    std::vector<NamedPicture> pictures; ///< that an image index names and that exist
};

/// Checks the image index that the program would use or, without one, whether one can be made. Returns nullopt, with a
/// finding, if there is no page list.
std::optional<PageListSummary> checkPageList(const FolderListing& mImg, Findings& findings);

} // namespace velmarin
