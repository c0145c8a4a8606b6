#include "maintenance/InterruptedUpdate.h"

#include "files/FolderLock.h"
#include "files/Leftovers.h"
#include "files/SystemCalls.h"
#include "maintenance/LockedFolder.h"

namespace velmarin {

void undoInterruptedUpdate(const FolderItem& dictionary, Work& work) {
    if (!holdsInterruptedSwap(dictionary.path()))
        return;
    const FolderLock lock(lockedFolderOf(FolderItem(dictionary.AbsolutePath()).Parent()), FolderLock::Kind::Alone,
                          work);
    const WriteAccess access(dictionary.path());
    clearLeftovers(dictionary.path(), work);
}

bool failIfUpdateWasInterrupted(const FolderItem& dictionary, MaintenanceResult& result) {
    const bool interrupted = holdsInterruptedSwap(dictionary.path());
    if (interrupted)
        result.fail(dictionary, "it is incomplete, because an update of it was interrupted and cannot be undone here");
    return interrupted;
}

} // namespace velmarin
