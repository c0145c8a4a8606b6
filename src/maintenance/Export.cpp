#include "maintenance/Export.h"

#include "files/FolderListing.h"
#include "files/FolderLock.h"
#include "files/Leftovers.h"
#include "files/StagedMembers.h"
#include "files/SystemCalls.h"
#include "files/TemporaryName.h"
#include "files/TreeCompare.h"
#include "maintenance/InterruptedUpdate.h"
#include "maintenance/LockedFolder.h"
#include "store/DictionaryMembers.h"
#include "text/LetterCase.h"

#include <algorithm>
#include <cerrno>
#include <map>

namespace velmarin {

namespace {

/// Exports one dictionary.
class Exporter {
  public:
    Exporter(const FolderItem& dictionary, const FolderItem& destination, const Progress& progress)
        : dictionary_(dictionary), destination_(destination), name_(dictionary.Name()), work_(progress) {}

    MaintenanceResult run(const MayReplace& mayReplace) {
        undoInterruptedUpdate(dictionary_, work_);
        if (failIfUpdateWasInterrupted(dictionary_, result_))
            return std::move(result_);
        if (!dictionary_.Child("FW").Exists())
            result_.add(ItemOutcome::Skipped, dictionary_);
        else if (!destination_.Directory())
            result_.fail(destination_, "it is not a folder");
        else
            exportLocked(mayReplace);
        return std::move(result_);
    }

  private:
    void exportLocked(const MayReplace& mayReplace) {
        const FolderLock lock(lockedFolderOf(FolderItem(dictionary_.AbsolutePath()).Parent()), FolderLock::Kind::Shared,
                              work_);
        if (failIfUpdateWasInterrupted(dictionary_, result_)) // by a run that was waited for
            return;
        clearLeftovers(destination_.path(), work_);
        const FolderListing listing(destination_);
        if (!listing.listed())
            return result_.fail(destination_, "it cannot be listed: " + errorInWords(errno));
        const FolderItem existing = listing.Child(name_);
        if (existing.occupied() && !existing.Alias() &&
            (liesIn(dictionary_.path(), existing.path()) || liesIn(existing.path(), dictionary_.path())))
            return result_.fail(dictionary_, "it cannot be exported onto itself");
        if (existing.occupied() && !mayReplace(name_))
            return result_.add(ItemOutcome::Skipped, dictionary_);
        const TreePlan plan = planTree(dictionary_.path(), destination_.path(), Links::Followed, Purpose::Copy, work_);
        result_.fail(plan);
        if (plan.whole())
            copy(plan, existing);
    }

    void copy(const TreePlan& plan, const FolderItem& existing) {
        work_.expect(plan.bytes);
        auto staged = StagedMembers::in(destination_.path());
        if (!staged)
            return result_.fail(destination_, "nothing can be written there: " + errorInWords(errno));
        if (staged->copy(plan, name_, work_, result_.failures) != CopyOutcome::Whole)
            return;
        const FolderItem target(destination_.path() / name_);
        if (existing.occupied()) {
            if (!replace(*staged, existing))
                return;
        } else if (!staged->moveTo(name_, target.path())) {
            return result_.fail(target, "it could not be given its name: " + errorInWords(errno));
        }
        result_.add(ItemOutcome::Exported, target);
        if (!flushFolder(destination_.path()))
            return result_.fail(target, "it could not be written: " + errorInWords(errno));
        if (!staged->drop(work_))
            result_.fail(target, "the replaced one could not be removed completely: " + errorInWords(errno));
    }

    /// Swaps the staged dictionary with the existing one, whose name may differ in case or composition. Returns false,
    /// with failures, if that is not possible.
    bool replace(StagedMembers& staged, const FolderItem& existing) {
        if (existing.Name() == name_ && staged.exchange(name_))
            return true;
        const auto fail = [&] {
            result_.fail(existing, "it could not be replaced: " + errorInWords(errno));
            return false;
        };
        if (!staged.beginSwap())
            return fail();
        if (!staged.swap({name_}, work_, result_.failures))
            return false;
        if (staged.forgetOld())
            return true;
        fail();
        staged.undo(work_, result_.failures);
        return false;
    }

    const FolderItem& dictionary_;
    const FolderItem& destination_;
    const std::string name_;
    Work work_;
    MaintenanceResult result_;
};

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

MaintenanceResult exportDictionary(const FolderItem& dictionary, const FolderItem& destination,
                                   const MayReplace& mayReplace, const Progress& progress) {
    return Exporter(dictionary, destination, progress).run(mayReplace);
}

bool sameAsExported(const FolderItem& dictionary, const FolderItem& other, const Progress& progress) {
    Work work(progress);
    return sameContents(planTree(dictionary.path(), {}, Links::Followed, Purpose::Copy, work), other.path(), work);
}

} // namespace velmarin
