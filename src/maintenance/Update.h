#pragma once

#include "files/Work.h"
#include "maintenance/Record.h"

#include <string_view>
#include <vector>

namespace velmarin {

/// The dictionaries called `name` (case ignored) in any group of a `DictionaryFolder`. Links are not followed. A copy
/// that a killed update has left without any mark of a dictionary is still one.
std::vector<FolderItem> installedCopies(const FolderItem& dictionaryFolder, std::string_view name,
                                        const Progress& progress = {});

/// Brings the visible members of `dictionary` into each of the installed copies. The members that they replace go to a
/// new folder in `backups` for each copy, which is named after the dictionary, "-Oldversion-" and the place of the copy
/// in the list. What only the copy has stays.
///
/// One member after the other: the new one is copied under a hidden name into the installed copy and flushed, then the
/// old one goes to the backup folder, then the new one gets its name. So whenever the process is killed, each old
/// member is whole in the one place or the other, and what fails leaves the old member where it was. A member that
/// cannot be replaced does not keep the others from it.
Record updateDictionary(const FolderItem& dictionary, const std::vector<FolderItem>& copies, const FolderItem& backups,
                        const Progress& progress = {});

} // namespace velmarin
