#include "maintenance/Install.h"

#include "files/FolderListing.h"
#include "files/FolderLock.h"
#include "files/Leftovers.h"
#include "files/StagedMembers.h"
#include "files/SystemCalls.h"
#include "files/TreeCompare.h"
#include "maintenance/DictionaryFolder.h"

#include <cerrno>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

bool isEmptyFolder(const FolderItem& item) {
    return !item.Alias() && item.Directory() && item.items().empty();
}

} // namespace

Record installDictionary(const FolderItem& dictionary, const FolderItem& group, const Progress& progress) {
    Record record;
    Work work(progress);
    const auto fail = [&record](const FolderItem& item, std::string reason) {
        record.failures.push_back({item, std::move(reason)});
        return std::move(record);
    };
    if (!group.Directory())
        return fail(group, "it is not a folder");
    const FolderLock lock(dictionaryFolderOf(group), FolderLock::Kind::Alone, work);
    clearLeftovers(group.path(), work);

    const TreePlan plan = planTree(dictionary.path(), group.path(), Links::Kept, Purpose::Copy, work);
    record.failures = plan.unreadable;
    record.failures.insert(record.failures.end(), plan.leftOut.begin(), plan.leftOut.end());
    if (!plan.whole())
        return record;

    const FolderItem target(group.path() / dictionary.Name());
    const FolderListing listing(group);
    if (!listing.listed())
        return fail(group, "it cannot be listed");
    const FolderItem there = listing.Child(dictionary.Name());
    if (there.occupied() && !(there == target && isEmptyFolder(there))) {
        if (!sameContents(plan, there.path(), work))
            return fail(there, "an item of that name stands there already");
        record.deeds.push_back({Deed::AlreadyThere, there});
        return record;
    }

    work.expect(plan.bytes);
    auto staged = StagedMembers::in(group.path());
    if (!staged)
        return fail(group, "nothing can be written there: " + errorInWords(errno));
    if (staged->copy(plan, dictionary.Name(), work, record.failures) != CopyOutcome::Whole)
        return record;
    if (!staged->moveTo(dictionary.Name(), target.path()))
        return fail(target, "it could not be given its name: " + errorInWords(errno));
    record.deeds.push_back({Deed::Installed, target});
    if (!flushFolder(group.path()))
        return fail(target, "it could not be written: " + errorInWords(errno));
    return record;
}

} // namespace velmarin
