#pragma once

#include "files/FolderItem.h"

#include <string>
#include <vector>

namespace velmarin {

/// A row of the group pop-up: the name in the folder (an alias's own), and the folder with aliases
/// followed.
struct GroupRow {
    std::string name;
    FolderItem folder;
};

/// The groups of a `DictionaryFolder` by name: every visible folder in it, aliases of folders included.
std::vector<GroupRow> listGroups(const FolderItem& dictionaryFolder);

} // namespace velmarin
