#pragma once

#include "files/FolderItem.h"

#include <string_view>

namespace velmarin {

// The copies: nothing is replaced, an existing folder is filled up, and items that cannot be copied are left out
// without a message. The result is the item of that name in `destFolder`, which does not exist if nothing was
// copied.

/// Links are copied as links that lead to the same; by _Complete, what they lead to is copied in their place.
FolderItem mFiMod_CopyFileOrFolderTo(const FolderItem& source, const FolderItem& destFolder);
FolderItem mFiMod_CopyFileOrFolderTo_Complete(const FolderItem& source, const FolderItem& destFolder);
/// Of a link, what it leads to. Whether the name of `source` is taken in `destFolder` plays no part; a `newName` that
/// is taken stays as it is.
FolderItem mFiMod_CopyFiToFolderWIthNewName(const FolderItem& source, const FolderItem& destFolder,
                                            std::string_view newName);
/// The moved item. Nil, and nothing moved, if the name is taken (after a message) or the move fails.
FolderItem mFiMod_MoveFileOrFolderTo(const FolderItem& source, const FolderItem& destFolder);

} // namespace velmarin
