#pragma once

#include "files/Work.h"
#include "maintenance/Record.h"

#include <string_view>
#include <vector>

namespace velmarin {

/// The dictionaries called `name`, case and Unicode composition ignored, in any group of a `DictionaryFolder`. Links
/// are not followed. A copy that a killed update has left without any mark of a dictionary is still one.
std::vector<FolderItem> installedCopies(const FolderItem& dictionaryFolder, std::string_view name,
                                        const Progress& progress = {});

/// Brings the visible members of `dictionary` into each of the installed copies. The members that they replace go to a
/// new folder in `backups` for each copy, which is named after the dictionary, "-Oldversion-" and the position of the
/// copy in the list. What only the copy has stays, and so do hidden members.
///
/// For each copy, all new members are staged in the copy's own file system. Then the old ones are renamed aside there,
/// the new ones get their names, and the old ones go to the backup (files/StagedMembers.h). Where staging or the backup
/// fails, the copy stays as it is. A member that cannot be read stays old, and since `ind`, `txt` and `mImg` belong
/// together, each of them keeps the others old; a copy that thus ends with members of two versions is among the
/// failures. After a kill, each old member is in its place, in the backup or in a hidden folder of the copy, from where
/// the next update brings it back.
///
/// Waits while another run works on the folder that holds a copy's group (maintenance/DictionaryFolder.h).
Record updateDictionary(const FolderItem& dictionary, const std::vector<FolderItem>& copies, const FolderItem& backups,
                        const Progress& progress = {});

} // namespace velmarin
