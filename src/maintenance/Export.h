#pragma once

#include "files/Work.h"
#include "maintenance/Record.h"

#include <functional>
#include <string>
#include <vector>

namespace velmarin {

/// The dictionaries of all groups, links followed, each place on the disk once; by name in ListingOrder, then by path.
std::vector<FolderItem> exportableDictionaries(const FolderItem& dictionaryFolder, const Progress& progress = {});

/// Asked with the name of a dictionary that stands in the destination already.
using MayReplace = std::function<bool(const std::string& name)>;

/// Copies a dictionary into `destination` as one that stands by itself: what links in it lead to takes their place and
/// name. It appears, flushed to the disk, only when all of it has arrived, and takes the place of what stood there in
/// one step. What becomes of it is added to `record`.
///
/// A dictionary without `FW`, and one that must not be replaced, is skipped. What no copy can hold (FIFOs, devices,
/// links that lead nowhere or in circles) is left out and is among the failures; anything else that cannot be copied
/// keeps the dictionary from appearing.
///
/// Waits while an install or update works on the folder that holds the dictionary's group
/// (maintenance/DictionaryFolder.h). Exports do not wait for each other.
void exportDictionary(const FolderItem& dictionary, const FolderItem& destination, const MayReplace& mayReplace,
                      const Progress& progress, Record& record);

/// Whether an export of `dictionary` would give what stands at `other`, byte for byte.
bool sameAsExported(const FolderItem& dictionary, const FolderItem& other, const Progress& progress = {});

} // namespace velmarin
