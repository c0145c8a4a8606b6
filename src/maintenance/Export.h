#pragma once

#include "files/Work.h"
#include "maintenance/MaintenanceResult.h"

#include <functional>
#include <string>
#include <vector>

namespace velmarin {

/// The dictionaries of all groups, sorted by name (ListingOrder), then by path. Links are followed, and a dictionary
/// with several paths is listed once.
std::vector<FolderItem> exportableDictionaries(const FolderItem& dictionaryFolder, const Progress& progress = {});

/// Asked with the name of a dictionary that the destination already has.
using MayReplace = std::function<bool(const std::string& name)>;

/// Copies a dictionary into `destination`. Links in it are replaced by what they lead to, so that the copy needs
/// nothing outside of it. The copy appears in one step, when it is complete and flushed to the disk, and replaces what
/// had its name.
///
/// A dictionary is skipped if it has no `FW` or if it may not replace what has its name. FIFOs, devices, and links that
/// lead nowhere or in circles are left out, each with a failure; if anything else cannot be copied, nothing appears.
///
/// Waits while an install or update has locked the folder that holds the dictionary's group (lockedFolderOf). Exports
/// do not wait for each other.
MaintenanceResult exportDictionary(const FolderItem& dictionary, const FolderItem& destination,
                                   const MayReplace& mayReplace, const Progress& progress = {});

/// Whether an export of `dictionary` would give what is at `other`, byte for byte.
bool sameAsExported(const FolderItem& dictionary, const FolderItem& other, const Progress& progress = {});

} // namespace velmarin
