#pragma once

#include "files/FolderItem.h"
#include "text/Utf8.h"

#include <filesystem>
#include <string>

namespace velmarin {

/// The folder that install, update and export lock while they work on a group: the one that holds the group, which is
/// `DictionaryFolder` for an installed group. Links are followed, so that every path to the group gives the same
/// folder.
inline std::filesystem::path lockedFolderOf(const FolderItem& group) {
    return std::filesystem::path(group.AbsolutePath()).parent_path();
}

/// What a dialog shows while its command waits for the lock on `folder`.
inline std::string waitMessage(const std::filesystem::path& folder) {
    return "Waiting for another run on \"" + toValidUtf8(folder.filename().native()) + "\"";
}

} // namespace velmarin
