#pragma once

#include "cli/DictionaryCheck.h"
#include "cli/PictureNames.h"
#include "files/FolderListing.h"
#include "store/PageList.h"

#include <optional>
#include <vector>

namespace velmarin {

struct PageListSummary {
    /// What the page list is called in a finding.
    std::string name;
    /// All its pages.
    ImageDictionaryMap pages;
    /// Those of an image index whose file is there.
    std::vector<NamedPicture> pictures;
};

/// Checks the image index that the program would use, or, without one, whether one can be made. Nothing if there is no
/// page list.
std::optional<PageListSummary> checkPageList(const FolderListing& mImg, std::vector<Finding>& findings);

} // namespace velmarin
