#pragma once

#include "files/Work.h"
#include "maintenance/MaintenanceResult.h"

#include <functional>
#include <string_view>
#include <vector>

namespace velmarin {

struct InstalledCopies {
    std::vector<FolderItem> copies;
    Failures unreadable; ///< folders that cannot be listed and may hold or be a copy
};

/// The dictionaries called `name`, ignoring case and Unicode composition, in all groups of a `DictionaryFolder`. Links
/// are not followed. A copy that a killed update left without any member of a dictionary is included.
InstalledCopies installedCopies(const FolderItem& dictionaryFolder, std::string_view name,
                                const Progress& progress = {});

/// Copies the visible members of `dictionary` into each of the installed copies. For each copy, the replaced members
/// are moved to a new folder in `backups`, which is named after the dictionary, "-Oldversion-" and the position of the
/// copy in the list. Hidden members, and members that only the copy has, are kept.
///
/// For each copy, all new members are staged in the copy's own file system. Then the old ones are renamed aside there,
/// the new ones get their names, and the old ones are moved to the backup (files/StagedMembers.h). If staging or the
/// backup fails, the copy is as it was. A member that cannot be read is not replaced, and `ind`, `txt` and `mImg` are
/// replaced only together. A copy that ends with members of two versions is a failure. After a kill, each old member is
/// in its place, in the backup or in a hidden folder of the copy, from which the next update restores it.
///
/// Waits while another run has locked the folder that holds a copy's group (lockedFolderOf). `mayChange` is asked about
/// each copy under that lock; one that it fails stays as it is.
MaintenanceResult updateDictionary(const FolderItem& dictionary, const std::vector<FolderItem>& copies,
                                   const FolderItem& backups, const Progress& progress = {},
                                   const std::function<Result(const FolderItem& copy)>& mayChange = {});

} // namespace velmarin
