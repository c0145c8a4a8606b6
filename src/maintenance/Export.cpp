#include "maintenance/Export.h"

#include "files/AtomicFile.h"
#include "files/FolderChanges.h"
#include "files/StagedItem.h"
#include "files/TemporaryName.h"
#include "files/TreePlan.h"
#include "store/DictionaryItem.h"
#include "text/StringRules.h"

#include <algorithm>
#include <cerrno>
#include <map>

namespace velmarin {

namespace {

/// Gives the copy its name, in the place of `there` where that exists. False with errno.
bool putInPlace(StagedItem& staged, const FolderItem& there, const FolderItem& target) {
    return there.occupied() ? staged.moveInPlaceOf(there.path(), target.path()) : staged.moveTo(target.path());
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
    clearLeftovers(destination.path(), work);

    const FolderItem there = destination.Child(dictionary.Name());
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
    auto staged = StagedItem::copy(plan, destination.path(), work, record.failures);
    if (!staged)
        return;
    const FolderItem target(destination.path() / dictionary.Name());
    if (!putInPlace(*staged, there, target))
        return fail(dictionary, "it could not be given its name in the folder: " + errorInWords(errno));
    record.deeds.push_back({Deed::Exported, target});
    if (!flushFolder(destination.path()))
        return fail(target, errorInWords(errno));
    if (!staged->drop(work))
        fail(target, "what stood there before could not be removed altogether: " + errorInWords(errno));
}

bool sameAsExported(const FolderItem& dictionary, const FolderItem& other, const Progress& progress) {
    Work work(progress);
    return sameContents(planTree(dictionary.path(), {}, Links::Followed, Purpose::Copy, work), other.path(), work);
}

} // namespace velmarin
