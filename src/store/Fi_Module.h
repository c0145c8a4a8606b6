#pragma once

#include "store/FolderItem.h"

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// The set of picture extensions, in small letters without the point. Filled by mFiMod_OpenThisModule.
extern std::set<std::string> pPictureExtensions;
/// The per-user folder `Selorin_SoftWare`. Set by mFiMod_OpenThisModule.
extern FolderItem pFiMod_UserPrefContainer;

/// Makes the per-user folder (below $XDG_CONFIG_HOME or ~/.config) with its `LocalUserName`, and fills pPictureExtensions.
void mFiMod_OpenThisModule();

std::string mFiMod_GetExtensionFromFileName(std::string_view name);
std::string mFiMod_RemoveExtesionFromFileName(std::string_view name);
std::string mFiMod_GetUniqueFileName(std::string_view name, const FolderItem& folder);
FolderItem mFiMod_CopyFileOrFolderTo(const FolderItem& source, const FolderItem& destFolder);
FolderItem mFiMod_CopyFileOrFolderTo_Complete(const FolderItem& source, const FolderItem& destFolder);
FolderItem mFiMod_CopyFiToFolderWIthNewName(const FolderItem& source, const FolderItem& destFolder,
                                            std::string_view newName);
FolderItem mFiMod_MoveFileOrFolderTo(const FolderItem& source, const FolderItem& destFolder);

/// Appends to `lines` the lines whose 1-based numbers stand, ascending, in `lineNumbers`; a 0 or a repeated number is
/// answered by nothing. Tells of a nil or missing file and of no numbers by a message.
void mFiMod_GetTextFiLinesByLineNums(const FolderItem& file, const std::vector<int>& lineNumbers,
                                     std::vector<std::string>& lines);
int mFiMod_GetLineCountFromTextFi(const FolderItem& file);

/// Writes `ImageIndex` in `folder` from the picture files in it, by name. A nil folder is asked for through
/// `askForFolder`. False, and nothing written, where there is no folder, no picture, or it cannot be written.
bool mFiMod_MakeImageIndex(FolderItem folder, const std::function<FolderItem()>& askForFolder = {});

} // namespace velmarin
