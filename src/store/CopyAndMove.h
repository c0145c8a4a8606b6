#pragma once

#include "files/FolderItem.h"

#include <string_view>

namespace velmarin {

// A copy replaces nothing, adds to a folder that exists already, and leaves out items that cannot be copied, without a
// message. It returns the item of that name in `destFolder`, which does not exist if nothing was
// copied.

/// Links are copied as links with the same target; _Complete copies the targets instead.
FolderItem mFiMod_CopyFileOrFolderTo(const FolderItem& source, const FolderItem& destFolder);
FolderItem mFiMod_CopyFileOrFolderTo_Complete(const FolderItem& source, const FolderItem& destFolder);
/// Copies the target of a link. It does not matter whether `destFolder` has the name of `source`, but an item called
/// `newName` is not replaced.
FolderItem mFiMod_CopyFiToFolderWIthNewName(const FolderItem& source, const FolderItem& destFolder,
                                            std::string_view newName);
/// Returns the moved item; nil if the name is taken, after a message, or if the move fails.
FolderItem mFiMod_MoveFileOrFolderTo(const FolderItem& source, const FolderItem& destFolder);

} // namespace velmarin
