#include "maintenance/Export.h"

#include "files/FolderListing.h"
#include "files/FolderLock.h"
#include "files/Leftovers.h"
#include "files/StagedMembers.h"
#include "files/SystemCalls.h"
#include "files/TemporaryName.h"
#include "files/TreeCompare.h"
#include "maintenance/DictionaryFolder.h"
#include "store/DictionaryMembers.h"
#include "text/LetterCase.h"

#include <algorithm>
#include <cerrno>
#include <map>

namespace velmarin {

namespace {

/// Puts a staged dictionary in the place of the one that is there, whose name may differ in case or composition. False
/// with the failures.
bool replace(StagedMembers& staged, const FolderItem& there, const std::string& name, Work& work, Failures& failures) {
    if (there.Name() == name && staged.exchange(name))
        return true;
    const auto fail = [&] {
        failures.push_back({there, "it could not be replaced: " + errorInWords(errno)});
        return false;
    };
    return (staged.beginSwap() || fail()) && staged.swap({name}, work, failures) && (staged.forgetOld() || fail());
}

} // namespace

std::vector<FolderItem> exportableDictionaries(const FolderItem& dictionaryFolder, const Progress& progress) {
    const Work work(progress);
    std::map<std::string, FolderItem> byPath;
    for (const FolderItem& entry : dictionaryFolder.items()) {
        work.pass();
        const FolderItem group = entry.resolved();
        if (!group.Directory())
            continue;
        for (const FolderItem& item : group.items()) {
            work.pass();
            const FolderItem dictionary = item.resolved();
            if (!isTemporaryName(item.Name()) && mSub_DicOrNot(dictionary))
                byPath.emplace(dictionary.AbsolutePath(), dictionary);
        }
    }
    std::vector<FolderItem> found;
    found.reserve(byPath.size());
    for (auto& [path, dictionary] : byPath)
        found.push_back(std::move(dictionary));
    std::stable_sort(found.begin(), found.end(),
                     [](const FolderItem& a, const FolderItem& b) { return ListingOrder()(a.Name(), b.Name()); });
    return found;
}

void exportDictionary(const FolderItem& dictionary, const FolderItem& destination, const MayReplace& mayReplace,
                      const Progress& progress, Record& record) {
    Work work(progress);
    const auto fail = [&record](const FolderItem& item, std::string reason) {
        record.failures.push_back({item, std::move(reason)});
    };
    if (!dictionary.Child("FW").Exists()) {
        record.deeds.push_back({Deed::Skipped, dictionary});
        return;
    }
    if (!destination.Directory())
        return fail(destination, "it is not a folder");
    const FolderLock lock(dictionaryFolderOf(FolderItem(dictionary.AbsolutePath()).Parent()), FolderLock::Kind::Shared,
                          work);
    clearLeftovers(destination.path(), work);

    const FolderListing listing(destination);
    if (!listing.listed())
        return fail(destination, "it cannot be listed");
    const FolderItem there = listing.Child(dictionary.Name());
    if (there.occupied()) {
        if (!there.Alias() && (liesIn(dictionary.path(), there.path()) || liesIn(there.path(), dictionary.path())))
            return fail(dictionary, "it cannot be exported onto itself");
        if (!mayReplace(dictionary.Name())) {
            record.deeds.push_back({Deed::Skipped, dictionary});
            return;
        }
    }
    const TreePlan plan = planTree(dictionary.path(), destination.path(), Links::Followed, Purpose::Copy, work);
    record.failures.insert(record.failures.end(), plan.unreadable.begin(), plan.unreadable.end());
    record.failures.insert(record.failures.end(), plan.leftOut.begin(), plan.leftOut.end());
    if (!plan.whole())
        return;

    work.expect(plan.bytes);
    const std::string name = dictionary.Name();
    auto staged = StagedMembers::in(destination.path());
    if (!staged)
        return fail(destination, "nothing can be written there: " + errorInWords(errno));
    if (staged->copy(plan, name, work, record.failures) != CopyOutcome::Whole)
        return;
    const FolderItem target(destination.path() / name);
    if (there.occupied()) {
        if (!replace(*staged, there, name, work, record.failures))
            return;
    } else if (!staged->moveTo(name, target.path())) {
        return fail(target, "it could not be given its name: " + errorInWords(errno));
    }
    record.deeds.push_back({Deed::Exported, target});
    if (!flushFolder(destination.path()))
        return fail(target, "it could not be written: " + errorInWords(errno));
    if (!staged->drop(work))
        fail(target, "the replaced one could not be removed altogether: " + errorInWords(errno));
}

bool sameAsExported(const FolderItem& dictionary, const FolderItem& other, const Progress& progress) {
    Work work(progress);
    return sameContents(planTree(dictionary.path(), {}, Links::Followed, Purpose::Copy, work), other.path(), work);
}

} // namespace velmarin
