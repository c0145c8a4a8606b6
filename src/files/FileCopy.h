#pragma once

#include "files/FolderItem.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// What becomes of symbolic links inside what is copied: they stay links, or what they lead to takes their place and
/// name.
enum class Links { Kept, Followed };

struct CopyFailure {
    FolderItem item;
    /// In plain words.
    std::string reason;
};

/// Copies `source` (itself by the rule for links) into `destFolder` as `newName`, with contents, permissions and times
/// of change. A file, and a folder whose name is free, come into being under a hidden name and are renamed when whole;
/// a folder whose name is taken by a folder is filled up. Nothing that stands there is replaced. Not flushed to the
/// disk.
///
/// What cannot be copied is left out and the rest goes on: each such item is returned with its reason. Refused are
/// items that are neither file, folder nor link, a link that leads nowhere where links are followed, one that leads
/// back into the folder being copied, and a folder into itself. `afterEach` is called after each item.
std::vector<CopyFailure> copyItem(const FolderItem& source, const FolderItem& destFolder, std::string_view newName,
                                  Links links, const std::function<void()>& afterEach = {});

/// Moves `source`, links kept, into `destFolder` as `newName`, which must be free. Between file systems it is copied
/// and flushed, and removed only when all of it has arrived: where it has not, it stays, and no copy does.
std::vector<CopyFailure> moveItem(const FolderItem& source, const FolderItem& destFolder, std::string_view newName);

} // namespace velmarin
