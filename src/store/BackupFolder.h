#pragma once

#include "files/FolderItem.h"

#include <cstddef>
#include <string>

namespace velmarin {

/// A free name in `backups` for what is replaced in a dictionary: the dictionary's name, cut where a folder could not
/// have it, "-Oldversion-" and `number`, made unique by mFiMod_GetUniqueFileName.
std::string backupFolderName(const std::string& dictionary, std::size_t number, const FolderItem& backups);

} // namespace velmarin
