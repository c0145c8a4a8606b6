#include "maintenance/Update.h"

#include "files/FolderItem.h"
#include "files/FolderLock.h"
#include "files/Leftovers.h"
#include "files/MemberSwap.h"
#include "files/Moves.h"
#include "files/RemoveTree.h"
#include "files/SystemCalls.h"
#include "maintenance/CopyUpdate.h"
#include "maintenance/InterruptedUpdate.h"
#include "maintenance/LockedFolder.h"
#include "store/BackupFolder.h"
#include "store/DictionaryMembers.h"
#include "text/UnicodeForms.h"
#include "text/Utf8.h"

#include <algorithm>
#include <cerrno>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <utility>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

using MayChange = std::function<Result(const FolderItem& copy)>;

bool isRealFolder(const FolderItem& item) {
    return !item.Alias() && item.Directory();
}

/// Updates the installed copies one by one.
class Updater {
  public:
    Updater(const FolderItem& dictionary, const FolderItem& backups, const Progress& progress, MayChange mayChange)
        : dictionary_(dictionary), backups_(backups), work_(progress), mayChange_(std::move(mayChange)) {}

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
        undoInterruptedUpdate(dictionary_, work_);
        if (failIfUpdateWasInterrupted(dictionary_, result_))
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
        const auto names = listNames(dictionary_.path());
        if (!names)
            return result_.fail(dictionary_, "it cannot be listed: " + errorInWords(errno));
        names_ = *names;
        for (const std::string& name : names_) {
            const FolderItem item(dictionary_.path() / name);
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
        if (failIfUpdateWasInterrupted(copy, result_))
            return;
        for (const fs::path& leftover : unsavedMembers(copy.path())) {
            if (!saveLeftover(leftover, copy, k))
                return;
        }
        if (const Result may = mayChange_ ? mayChange_(copy) : Result(); !may) {
            result_.failures.push_back(may.failure());
            return;
        }
        const auto backup = makeBackup(copy, k);
        if (!backup)
            return;
        const std::size_t before = result_.items.size();
        CopyUpdate(copy, *backup, work_, result_).run(members_, unreadable_, [this] { return failIfMembersCame(); });
        std::error_code notEmpty;
        if (result_.items.size() == before)
            fs::remove(*backup, notEmpty);
    }

    /// Members that came while others were copied may belong to a later version.
    bool failIfMembersCame() {
        bool came = false;
        for (const FolderItem& item : dictionary_.items()) {
            if (!item.Visible() || std::find(names_.begin(), names_.end(), item.Name()) != names_.end())
                continue;
            result_.fail(item, "it came while the dictionary was copied. Run the update again");
            came = true;
        }
        return came;
    }

    std::optional<fs::path> makeBackup(const FolderItem& copy, std::size_t k) {
        const auto backup = makeBackupFolder(dictionary_.Name(), k, backups_);
        if (!backup)
            result_.fail(copy,
                         "it was not updated, because its backup folder could not be made: " + errorInWords(errno));
        return backup;
    }

    /// Moves what a killed run has replaced in the copy to a backup of its own.
    bool saveLeftover(const fs::path& leftover, const FolderItem& copy, std::size_t k) {
        const auto members = oldMembersIn(leftover);
        if (!members)
            result_.fail(FolderItem(leftover), "it cannot be listed: " + errorInWords(errno));
        const auto backup = members ? makeBackup(copy, k) : std::nullopt;
        if (!backup)
            return false;
        Moves moves;
        for (const fs::path& old : *members) {
            if (!moves.move(old, *backup, backups_.path(), work_, result_.failures))
                return false;
        }
        if (!removeSaved(leftover, work_))
            result_.fail(FolderItem(leftover),
                         "its members are saved, but it could not be removed completely: " + errorInWords(errno));
        return !FolderItem(leftover).occupied();
    }

    const FolderItem& dictionary_;
    const FolderItem& backups_;
    Work work_;
    MayChange mayChange_;
    std::vector<std::string> names_; ///< of the items of the new version when it was planned
    std::map<std::string, TreePlan> members_;
    std::vector<std::string> unreadable_;
    MaintenanceResult result_;
};

} // namespace

InstalledCopies installedCopies(const FolderItem& dictionaryFolder, std::string_view name, const Progress& progress) {
    const Work work(progress);
    const std::string folded = foldedFileName(name);
    InstalledCopies found;
    const auto itemsIn = [&](const FolderItem& folder) {
        std::vector<FolderItem> items = folder.items();
        if (items.empty() && !listNames(folder.path()))
            found.unreadable.push_back({folder, "it cannot be listed: " + errorInWords(errno)});
        return items;
    };
    for (const FolderItem& group : itemsIn(dictionaryFolder)) {
        work.pass();
        if (!isRealFolder(group))
            continue;
        for (const FolderItem& item : itemsIn(group)) {
            work.pass();
            if (foldedFileName(item.Name()) != folded || !isRealFolder(item))
                continue;
            if (mSub_DicOrNot(item) || holdsLeftovers(item.path()))
                found.copies.push_back(item);
            else
                itemsIn(item); // only to report that it is unreadable
        }
    }
    return found;
}

MaintenanceResult updateDictionary(const FolderItem& dictionary, const std::vector<FolderItem>& copies,
                                   const FolderItem& backups, const Progress& progress,
                                   const std::function<Result(const FolderItem& copy)>& mayChange) {
    return Updater(dictionary, backups, progress, mayChange).run(copies);
}

} // namespace velmarin
