#pragma once

#include "files/FolderItem.h"
#include "files/Work.h"
#include "maintenance/MaintenanceResult.h"

namespace velmarin {

/// Gives the members of a dictionary that is to be copied their names back if an update of it was interrupted, under
/// the lock of its `DictionaryFolder`.
void undoInterruptedUpdate(const FolderItem& dictionary, Work& work);

/// Whether an interrupted update has left members of `dictionary` in a hidden folder. Then it is a failure of `result`.
bool failIfUpdateWasInterrupted(const FolderItem& dictionary, MaintenanceResult& result);

} // namespace velmarin
