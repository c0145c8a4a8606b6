#pragma once

#include "files/FolderItem.h"
#include "text/Utf8.h"

#include <filesystem>
#include <string>

namespace velmarin {

/// The folder that maintenance runs lock for a group: the one that holds it, which is `DictionaryFolder` for an
/// installed group. The same for every way to the group.
inline std::filesystem::path dictionaryFolderOf(const FolderItem& group) {
    return std::filesystem::path(group.AbsolutePath()).parent_path();
}

/// What a window shows while its run waits for that lock.
inline std::string waitMessage(const std::filesystem::path& folder) {
    return "Waiting for another run on \"" + toValidUtf8(folder.filename().native()) + "\"";
}

} // namespace velmarin
