#include "maintenance/Update.h"

#include "files/FolderLock.h"
#include "files/Leftovers.h"
#include "files/Move.h"
#include "files/StagedMembers.h"
#include "files/SystemCalls.h"
#include "maintenance/LockedFolder.h"
#include "store/BackupFolder.h"
#include "store/DictionaryItem.h"
#include "text/StringRules.h"
#include "text/Utf8.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <map>
#include <memory>
#include <optional>
#include <set>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

/// Members that are replaced only together: entry n of `ind` belongs to line n of `txt`, which names pages in `mImg`.
constexpr std::array<std::string_view, 3> kLinkedMembers{"ind", "txt", "mImg"};

bool isLinkedMember(std::string_view name) {
    return std::any_of(kLinkedMembers.begin(), kLinkedMembers.end(),
                       [&](std::string_view each) { return foldedFileName(each) == foldedFileName(name); });
}

bool isRealFolder(const FolderItem& item) {
    return !item.Alias() && item.Directory();
}

std::string quotedList(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "\"" : ", \"") + toValidUtf8(name) + "\"";
    return text;
}

/// Replaces members of one installed copy.
class CopyUpdate {
  public:
    CopyUpdate(const FolderItem& copy, fs::path backup, Work& work, MaintenanceResult& result)
        : copy_(copy), backup_(std::move(backup)), work_(work), result_(result) {}

    /// `unreadable` names members of the new version that cannot be copied.
    void run(const std::map<std::string, TreePlan>& members, std::vector<std::string> unreadable) {
        kept_ = std::move(unreadable);
        auto staged = StagedMembers::in(copy_.path());
        if (!staged)
            return result_.fail(copy_, "nothing can be written there: " + errorInWords(errno));
        if (!stage(*staged, members))
            return;
        if (!staged->beginSwap())
            return result_.fail(copy_, "nothing can be written there: " + errorInWords(errno));
        for (const std::vector<std::string>& names : unitsToSwap()) {
            if (staged->swap(names, work_, result_.failures))
                swapped_.insert(swapped_.end(), names.begin(), names.end());
            else
                kept_.insert(kept_.end(), names.begin(), names.end());
        }
        if (!swapped_.empty() && backUpOld(*staged))
            report();
    }

  private:
    /// Returns false if something could not be written. Then the whole copy stays as it is.
    bool stage(StagedMembers& staged, const std::map<std::string, TreePlan>& members) {
        for (const auto& [name, plan] : members) {
            switch (staged.copy(plan, name, work_, result_.failures)) {
            case CopyOutcome::Whole:
                new_.push_back(name);
                break;
            case CopyOutcome::SourceFailed:
                kept_.push_back(name);
                break;
            case CopyOutcome::TargetFailed:
                return false;
            }
            work_.pass();
        }
        return true;
    }

    std::vector<std::vector<std::string>> unitsToSwap() {
        std::vector<std::vector<std::string>> units;
        std::vector<std::string> together;
        for (const std::string& name : new_) {
            if (isLinkedMember(name))
                together.push_back(name);
            else
                units.push_back({name});
        }
        if (std::any_of(kept_.begin(), kept_.end(), isLinkedMember)) {
            for (const std::string& name : together)
                result_.fail(FolderItem(copy_.path() / name),
                             "it was not replaced, because \"ind\", \"txt\" and \"mImg\" are replaced only together");
            kept_.insert(kept_.end(), together.begin(), together.end());
        } else if (!together.empty()) {
            units.push_back(std::move(together));
        }
        return units;
    }

    /// Moves what was replaced to the backup folder. If that fails, the copy is as it was.
    bool backUpOld(StagedMembers& staged) {
        const auto old = staged.keepOld();
        if (!old) {
            result_.fail(copy_, "it could not be written and was not updated: " + errorInWords(errno));
            return false;
        }
        Moves moves;
        for (const fs::path& each : *old) {
            if (moves.move(each, backup_, backup_.parent_path(), work_, result_.failures))
                continue;
            if (!moves.undo(work_, result_.failures) || !staged.undoKeepOld() || !staged.undo(work_))
                result_.fail(copy_,
                             "it is updated, but not all replaced members could be saved. The next run tries again");
            else
                result_.fail(copy_, "it was not updated, because the members to be replaced could not be saved");
            return false;
        }
        saved_ = moves.moved();
        if (!staged.drop(work_))
            result_.fail(copy_,
                         "the replaced members are saved, but could not be removed completely: " + errorInWords(errno));
        return true;
    }

    void report() {
        std::sort(swapped_.begin(), swapped_.end(), ListingOrder());
        for (const std::string& name : swapped_) {
            bool replaced = false;
            for (const fs::path& old : saved_) {
                if (replacedBy(old.filename().native(), new_) != name)
                    continue;
                result_.add(ItemOutcome::BackedUp, FolderItem(old));
                replaced = true;
            }
            result_.add(replaced ? ItemOutcome::Replaced : ItemOutcome::Added, FolderItem(copy_.path() / name));
        }
        if (!kept_.empty())
            result_.fail(copy_, "it now holds members of two versions: not replaced were " + quotedList(kept_));
    }

    const FolderItem& copy_;
    fs::path backup_;
    Work& work_;
    MaintenanceResult& result_;
    std::vector<std::string> new_;     ///< staged members
    std::vector<std::string> kept_;    ///< members that stay old
    std::vector<std::string> swapped_; ///< members that are replaced or added
    std::vector<fs::path> saved_;      ///< old members in the backup folder
};

class Updater {
  public:
    Updater(const FolderItem& dictionary, const FolderItem& backups, const Progress& progress)
        : dictionary_(dictionary), backups_(backups), work_(progress) {}

    MaintenanceResult run(const std::vector<FolderItem>& copies) {
        if (liesIn(backups_.path(), dictionary_.path())) {
            result_.fail(backups_, "the backup folder must not be in the dictionary");
            return std::move(result_);
        }
        std::vector<FolderItem> updatable;
        for (const FolderItem& copy : copies) {
            if (liesIn(backups_.path(), copy.path()))
                result_.fail(copy, "it was not updated, because it contains the backup folder");
            else
                updatable.push_back(copy);
        }
        if (updatable.empty())
            return std::move(result_);
        const auto locks = lockFolders(updatable);
        if (!backups_.CreateAsFolder()) {
            result_.fail(backups_, "the backup folder could not be made: " + errorInWords(errno));
            return std::move(result_);
        }
        clearLeftovers(backups_.path(), work_);
        planMembers(updatable.size());
        for (std::size_t k = 0; k < updatable.size(); ++k) {
            work_.pass();
            updateCopy(updatable[k], k);
        }
        return std::move(result_);
    }

  private:
    std::vector<std::unique_ptr<FolderLock>> lockFolders(const std::vector<FolderItem>& copies) {
        std::set<fs::path> folders; // sorted, so that no two runs wait for each other
        for (const FolderItem& copy : copies)
            folders.insert(lockedFolderOf(copy.Parent()));
        std::vector<std::unique_ptr<FolderLock>> locks;
        locks.reserve(folders.size());
        for (const fs::path& folder : folders)
            locks.push_back(std::make_unique<FolderLock>(folder, FolderLock::Kind::Alone, work_));
        return locks;
    }

    void planMembers(std::size_t copies) {
        const auto items = membersIn(dictionary_.path());
        if (!items)
            return result_.fail(dictionary_, "it cannot be listed");
        for (const fs::path& path : *items) {
            const FolderItem item(path);
            if (!item.Visible())
                continue;
            TreePlan plan = planTree(item.path(), {}, Links::Kept, Purpose::Copy, work_, dictionary_.path());
            result_.fail(plan);
            if (!plan.whole()) {
                unreadable_.push_back(item.Name());
                continue;
            }
            work_.expect(plan.bytes * copies);
            members_.emplace(item.Name(), std::move(plan));
        }
    }

    void updateCopy(const FolderItem& copy, std::size_t k) {
        if (liesIn(copy.path(), dictionary_.path()) || liesIn(dictionary_.path(), copy.path()))
            return result_.fail(copy, "it was not updated, because it is, contains or is part of the chosen folder");
        const WriteAccess access(copy.path());
        clearLeftovers(copy.path(), work_);
        for (const fs::path& leftover : unsavedMembers(copy.path())) {
            if (!saveLeftover(leftover, copy, k))
                return;
        }
        if (const auto backup = makeBackup(copy, k))
            CopyUpdate(copy, *backup, work_, result_).run(members_, unreadable_);
    }

    std::optional<fs::path> makeBackup(const FolderItem& copy, std::size_t k) {
        const std::string name = backupFolderName(dictionary_.Name(), k, backups_);
        fs::path backup = backups_.path() / name;
        if (makeFolder(backup) && flushFolder(backups_.path()))
            return backup;
        result_.fail(copy, "it was not updated, because its backup folder \"" + toValidUtf8(name) +
                               "\" could not be made: " + errorInWords(errno));
        return std::nullopt;
    }

    /// Moves what a killed run has replaced in the copy to a backup of its own.
    bool saveLeftover(const fs::path& leftover, const FolderItem& copy, std::size_t k) {
        const auto backup = makeBackup(copy, k);
        const auto members = membersIn(leftover / kOldMembers);
        if (!members)
            result_.fail(FolderItem(leftover), "it cannot be listed");
        if (!backup || !members)
            return false;
        Moves moves;
        for (const fs::path& old : *members) {
            if (!moves.move(old, *backup, backups_.path(), work_, result_.failures))
                return false;
        }
        return removeTree(leftover, work_);
    }

    const FolderItem& dictionary_;
    const FolderItem& backups_;
    Work work_;
    std::map<std::string, TreePlan> members_;
    std::vector<std::string> unreadable_;
    MaintenanceResult result_;
};

} // namespace

std::vector<FolderItem> installedCopies(const FolderItem& dictionaryFolder, std::string_view name,
                                        const Progress& progress) {
    const Work work(progress);
    const std::string folded = foldedFileName(name);
    std::vector<FolderItem> copies;
    for (const FolderItem& group : dictionaryFolder.items()) {
        work.pass();
        if (!isRealFolder(group))
            continue;
        for (const FolderItem& item : group.items()) {
            work.pass();
            if (foldedFileName(item.Name()) == folded && isRealFolder(item) &&
                (mSub_DicOrNot(item) || holdsLeftovers(item.path())))
                copies.push_back(item);
        }
    }
    return copies;
}

MaintenanceResult updateDictionary(const FolderItem& dictionary, const std::vector<FolderItem>& copies,
                                   const FolderItem& backups, const Progress& progress) {
    return Updater(dictionary, backups, progress).run(copies);
}

} // namespace velmarin
