#pragma once

#include "files/FolderItem.h"

namespace velmarin {

/// The per-user folder `Selorin_SoftWare`. Nil until mFiMod_OpenThisModule has set it.
extern FolderItem pFiMod_UserPrefContainer;

/// Makes the per-user folder (below $XDG_CONFIG_HOME or ~/.config) with its `LocalUserName`.
void mFiMod_OpenThisModule();

} // namespace velmarin
