#include "maintenance/Install.h"

#include "files/FolderListing.h"
#include "files/FolderLock.h"
#include "files/Leftovers.h"
#include "files/StagedMembers.h"
#include "files/SystemCalls.h"
#include "files/TreeCompare.h"
#include "maintenance/InterruptedUpdate.h"
#include "maintenance/LockedFolder.h"

#include <cerrno>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

bool isEmptyFolder(const FolderItem& item) {
    return !item.Alias() && item.Directory() && item.items().empty();
}

} // namespace

MaintenanceResult installDictionary(const FolderItem& dictionary, const FolderItem& group, const Progress& progress) {
    MaintenanceResult result;
    Work work(progress);
    const auto fail = [&result](const FolderItem& item, std::string reason) {
        result.fail(item, std::move(reason));
        return std::move(result);
    };
    if (!group.Directory())
        return fail(group, "it is not a folder");
    undoInterruptedUpdate(dictionary, work);
    if (failIfUpdateWasInterrupted(dictionary, result))
        return result;
    const FolderLock lock(lockedFolderOf(group), FolderLock::Kind::Alone, work);
    clearLeftovers(group.path(), work);

    const TreePlan plan = planTree(dictionary.path(), group.path(), Links::Kept, Purpose::Copy, work);
    result.fail(plan);
    if (!plan.whole())
        return result;

    const FolderItem target(group.path() / dictionary.Name());
    const FolderListing listing(group);
    if (!listing.listed())
        return fail(group, "it cannot be listed: " + errorInWords(errno));
    const FolderItem existing = listing.Child(dictionary.Name());
    if (existing.occupied() && !(existing == target && isEmptyFolder(existing))) {
        if (!sameContents(plan, existing.path(), work))
            return fail(existing, "an item of that name is already there");
        result.add(ItemOutcome::AlreadyThere, existing);
        return result;
    }

    work.expect(plan.bytes);
    auto staged = StagedMembers::in(group.path());
    if (!staged)
        return fail(group, "nothing can be written there: " + errorInWords(errno));
    if (staged->copy(plan, dictionary.Name(), work, result.failures) != CopyOutcome::Whole)
        return result;
    if (!staged->moveTo(dictionary.Name(), target.path()))
        return fail(target, "it could not be given its name: " + errorInWords(errno));
    result.add(ItemOutcome::Installed, target);
    if (!flushFolder(group.path()))
        return fail(target, "it could not be written: " + errorInWords(errno));
    return result;
}

} // namespace velmarin
