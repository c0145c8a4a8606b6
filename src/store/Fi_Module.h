#pragma once

#include "files/FolderItem.h"

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// The set of picture extensions, in small letters without the point. Stands from the start, so that programs that
/// open no modules have it too.
extern std::set<std::string> pPictureExtensions;
/// The per-user folder `Selorin_SoftWare`. Nil until mFiMod_OpenThisModule has set it.
extern FolderItem pFiMod_UserPrefContainer;

/// Makes the per-user folder (below $XDG_CONFIG_HOME or ~/.config) with its `LocalUserName`, and fills
/// pPictureExtensions.
void mFiMod_OpenThisModule();

/// What follows the last point; empty where there is none.
std::string mFiMod_GetExtensionFromFileName(std::string_view name);
/// The name up to its last point.
std::string mFiMod_RemoveExtesionFromFileName(std::string_view name);
/// `name` where it is free in `folder`; otherwise cut to 31 bytes and numbered "_1", "_2" before the extension. The cut
/// before a number counts bytes, and can go through a character.
std::string mFiMod_GetUniqueFileName(std::string_view name, const FolderItem& folder);

// The copies: nothing is replaced, a folder that is there is filled up, and items that cannot be copied are left out
// without a message. The result is the item of that name in `destFolder`, which does not exist where nothing was
// copied.

/// Links are copied as links that lead to the same; by _Complete, what they lead to is copied in their place.
FolderItem mFiMod_CopyFileOrFolderTo(const FolderItem& source, const FolderItem& destFolder);
FolderItem mFiMod_CopyFileOrFolderTo_Complete(const FolderItem& source, const FolderItem& destFolder);
/// Of a link, what it leads to. Whether the name of `source` is taken in `destFolder` plays no part; a `newName` that
/// is taken stays as it is.
FolderItem mFiMod_CopyFiToFolderWIthNewName(const FolderItem& source, const FolderItem& destFolder,
                                            std::string_view newName);
/// The moved item. Nil, and nothing moved, where the name is taken (after a message) or the move fails.
FolderItem mFiMod_MoveFileOrFolderTo(const FolderItem& source, const FolderItem& destFolder);

/// Appends to `lines` the lines whose 1-based numbers stand, ascending, in `lineNumbers`; a 0 or a repeated number is
/// answered by nothing, and so are all that follow it. Tells of a nil, missing or unreadable file and of no numbers by
/// a message.
void mFiMod_GetTextFiLinesByLineNums(const FolderItem& file, const std::vector<int>& lineNumbers,
                                     std::vector<std::string>& lines);
/// 0 for a nil or missing file, and for what is not a file or cannot be read.
int mFiMod_GetLineCountFromTextFi(const FolderItem& file);

/// The pictures of a folder in ListingOrder, by extension. A link counts by its own name. Left out are hidden files
/// (other systems leave "._page1.tif" beside "page1.tif"), what is not a file, and names that would break a line.
std::vector<std::string> pictureNames(const FolderItem& folder);

/// Writes `ImageIndex` in `folder` from its pictures. A nil folder is asked for through `askForFolder`. False, and
/// nothing written, without a folder or a picture, or if it cannot be written.
bool mFiMod_MakeImageIndex(FolderItem folder, const std::function<FolderItem()>& askForFolder = {});

} // namespace velmarin
