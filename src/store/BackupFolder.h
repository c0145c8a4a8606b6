#pragma once

#include "files/FolderItem.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace velmarin {

/// A free name in `backups` for a folder of replaced members: the dictionary's name, shortened if the result would be
/// too long for a folder, "-Oldversion-" and `number`, made unique by mFiMod_GetUniqueFileName.
std::string backupFolderName(const std::string& dictionary, std::size_t number, const FolderItem& backups);

/// Makes a folder of that name, also if another run takes the first name meanwhile. Returns nullopt with errno if that
/// is not possible.
std::optional<std::filesystem::path> makeBackupFolder(const std::string& dictionary, std::size_t number,
                                                      const FolderItem& backups);

} // namespace velmarin
