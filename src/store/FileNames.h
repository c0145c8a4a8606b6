#pragma once

#include "files/FolderItem.h"

#include <string>
#include <string_view>

namespace velmarin {

/// The part after the last dot; empty if there is none.
std::string mFiMod_GetExtensionFromFileName(std::string_view name);
/// The name up to its last dot.
std::string mFiMod_RemoveExtesionFromFileName(std::string_view name);
/// `name` if it is free in `folder`; otherwise cut to 31 bytes and numbered "_1", "_2" before the extension. The cut
/// before a number counts bytes, and can split a character.
std::string mFiMod_GetUniqueFileName(std::string_view name, const FolderItem& folder);

} // namespace velmarin
