#pragma once

#include "files/FolderItem.h"

#include <filesystem>

namespace velmarin {

/// The folder that maintenance runs lock for a group: the one that holds it, which is `DictionaryFolder` for an
/// installed group. The same for every way to the group.
inline std::filesystem::path dictionaryFolderOf(const FolderItem& group) {
    return std::filesystem::path(group.AbsolutePath()).parent_path();
}

} // namespace velmarin
