#pragma once

#include "files/FolderItem.h"

#include <functional>
#include <string>
#include <vector>

namespace velmarin {

/// The pictures of a folder in ListingOrder, by extension. A link counts by its own name. Left out are hidden files
/// (other systems leave "._page1.tif" beside "page1.tif"), what is not a file, and names that would break a line.
std::vector<std::string> pictureNames(const FolderItem& folder);

/// Writes `ImageIndex` in `folder` from its pictures. For a nil folder, `askForFolder` asks the user. False if there is
/// no folder or no picture, or if the file cannot be written.
bool mFiMod_MakeImageIndex(FolderItem folder, const std::function<FolderItem()>& askForFolder = {});

} // namespace velmarin
