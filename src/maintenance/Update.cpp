#include "maintenance/Update.h"

#include "files/FolderItem.h"
#include "files/FolderLock.h"
#include "files/Leftovers.h"
#include "files/MemberSwap.h"
#include "files/Moves.h"
#include "files/RemoveTree.h"
#include "files/StagedMembers.h"
#include "files/SystemCalls.h"
#include "maintenance/DictionaryFolder.h"
#include "store/BackupFolder.h"
#include "store/DictionaryMembers.h"
#include "text/LetterCase.h"
#include "text/UnicodeForms.h"
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

/// Members that belong together: entry n of the index is line n of the text, which names pages.
constexpr std::array<std::string_view, 3> kTogether{"ind", "txt", "mImg"};

bool changesTogether(std::string_view name) {
    return std::any_of(kTogether.begin(), kTogether.end(),
                       [&](std::string_view each) { return foldedFileName(each) == foldedFileName(name); });
}

bool isTrueFolder(const FolderItem& item) {
    return !item.Alias() && item.Directory();
}

std::string joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "\"" : ", \"") + toValidUtf8(name) + "\"";
    return text;
}

/// Brings the planned members into one installed copy.
class CopyUpdate {
  public:
    CopyUpdate(const FolderItem& copy, fs::path backup, Work& work, Record& record)
        : copy_(copy), backup_(std::move(backup)), work_(work), record_(record) {}

    /// `unreadable`: the members of the new version that have no plan.
    void run(const std::map<std::string, TreePlan>& members, std::vector<std::string> unreadable) {
        staysOld_ = std::move(unreadable);
        auto staged = StagedMembers::in(copy_.path());
        if (!staged)
            return fail(copy_, "nothing can be written there: " + errorInWords(errno));
        if (!stage(*staged, members))
            return;
        if (!staged->beginSwap())
            return fail(copy_, "nothing can be written there: " + errorInWords(errno));
        for (const std::vector<std::string>& names : unitsOfNew()) {
            if (staged->swap(names, work_, record_.failures))
                swapped_.insert(swapped_.end(), names.begin(), names.end());
            else
                staysOld_.insert(staysOld_.end(), names.begin(), names.end());
        }
        if (!swapped_.empty() && saveOld(*staged))
            tell();
    }

  private:
    void fail(const FolderItem& item, std::string reason) { record_.failures.push_back({item, std::move(reason)}); }

    /// False where something could not be written: then the whole copy stays as it is.
    bool stage(StagedMembers& staged, const std::map<std::string, TreePlan>& members) {
        for (const auto& [name, plan] : members) {
            switch (staged.copy(plan, name, work_, record_.failures)) {
            case CopyOutcome::Whole:
                new_.push_back(name);
                break;
            case CopyOutcome::SourceFailed:
                staysOld_.push_back(name);
                break;
            case CopyOutcome::TargetFailed:
                return false;
            }
            work_.pass();
        }
        return true;
    }

    std::vector<std::vector<std::string>> unitsOfNew() {
        std::vector<std::vector<std::string>> units;
        std::vector<std::string> together;
        for (const std::string& name : new_) {
            if (changesTogether(name))
                together.push_back(name);
            else
                units.push_back({name});
        }
        if (std::any_of(staysOld_.begin(), staysOld_.end(), changesTogether)) {
            for (const std::string& name : together)
                fail(FolderItem(copy_.path() / name),
                     "it stays as it is, since \"ind\", \"txt\" and \"mImg\" are replaced only together");
            staysOld_.insert(staysOld_.end(), together.begin(), together.end());
        } else if (!together.empty()) {
            units.push_back(std::move(together));
        }
        return units;
    }

    /// Moves what was replaced to the backup folder. Where that fails, the copy gets all of it back.
    bool saveOld(StagedMembers& staged) {
        const auto old = staged.keepOld();
        if (!old) {
            fail(copy_, "it could not be written, and stays as it is: " + errorInWords(errno));
            return false;
        }
        Moves moves;
        for (const fs::path& each : *old) {
            if (moves.move(each, backup_, backup_.parent_path(), work_, record_.failures))
                continue;
            if (!moves.undo(work_, record_.failures) || !staged.undoKeepOld() || !staged.undo(work_))
                fail(copy_, "it is updated, but not all that was replaced could be saved. The next run tries again");
            else
                fail(copy_, "it stays as it is, since what would be replaced could not be saved");
            return false;
        }
        saved_ = moves.moved();
        if (!staged.drop(work_))
            fail(copy_, "what was replaced is saved, but could not be removed altogether: " + errorInWords(errno));
        return true;
    }

    void tell() {
        std::sort(swapped_.begin(), swapped_.end(), ListingOrder());
        for (const std::string& name : swapped_) {
            bool replaced = false;
            for (const fs::path& old : saved_) {
                if (replacedBy(old.filename().native(), new_) != name)
                    continue;
                record_.deeds.push_back({Deed::BackedUp, FolderItem(old)});
                replaced = true;
            }
            record_.deeds.push_back({replaced ? Deed::Replaced : Deed::Added, FolderItem(copy_.path() / name)});
        }
        if (!staysOld_.empty())
            fail(copy_, "it now holds members of two versions: not replaced were " + joined(staysOld_));
    }

    const FolderItem& copy_;
    fs::path backup_;
    Work& work_;
    Record& record_;
    std::vector<std::string> new_;
    std::vector<std::string> staysOld_;
    std::vector<std::string> swapped_;
    std::vector<fs::path> saved_;
};

class Updater {
  public:
    Updater(const FolderItem& dictionary, const FolderItem& backups, const Progress& progress)
        : dictionary_(dictionary), backups_(backups), work_(progress) {}

    Record run(const std::vector<FolderItem>& copies) {
        if (liesIn(backups_.path(), dictionary_.path())) {
            fail(backups_, "the backup folder must not lie in the dictionary");
            return std::move(record_);
        }
        std::vector<FolderItem> sound;
        for (const FolderItem& copy : copies) {
            if (liesIn(backups_.path(), copy.path()))
                fail(copy, "the folder for the backups lies in it, so that it was not updated");
            else
                sound.push_back(copy);
        }
        if (sound.empty())
            return std::move(record_);
        const auto locks = lockFolders(sound);
        if (!backups_.CreateAsFolder()) {
            fail(backups_, "the folder for the backups could not be made: " + errorInWords(errno));
            return std::move(record_);
        }
        clearLeftovers(backups_.path(), work_);
        planMembers(sound.size());
        for (std::size_t k = 0; k < sound.size(); ++k) {
            work_.pass();
            updateCopy(sound[k], k);
        }
        return std::move(record_);
    }

  private:
    void fail(const FolderItem& item, std::string reason) { record_.failures.push_back({item, std::move(reason)}); }

    std::vector<std::unique_ptr<FolderLock>> lockFolders(const std::vector<FolderItem>& copies) {
        std::set<fs::path> folders; // in one order for all runs, so that no two wait for each other
        for (const FolderItem& copy : copies)
            folders.insert(dictionaryFolderOf(copy.Parent()));
        std::vector<std::unique_ptr<FolderLock>> locks;
        locks.reserve(folders.size());
        for (const fs::path& folder : folders)
            locks.push_back(std::make_unique<FolderLock>(folder, FolderLock::Kind::Alone, work_));
        return locks;
    }

    void planMembers(std::size_t copies) {
        const auto items = membersIn(dictionary_.path());
        if (!items)
            return fail(dictionary_, "it cannot be listed");
        for (const fs::path& path : *items) {
            const FolderItem item(path);
            if (!item.Visible())
                continue;
            TreePlan plan = planTree(item.path(), {}, Links::Kept, Purpose::Copy, work_, dictionary_.path());
            record_.failures.insert(record_.failures.end(), plan.unreadable.begin(), plan.unreadable.end());
            record_.failures.insert(record_.failures.end(), plan.leftOut.begin(), plan.leftOut.end());
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
            return fail(copy, "it is the chosen folder itself or a part of it, and was not updated");
        const WriteAccess access(copy.path());
        clearLeftovers(copy.path(), work_);
        for (const fs::path& leftover : unsavedMembers(copy.path())) {
            if (!saveLeftover(leftover, copy, k))
                return;
        }
        if (const auto backup = makeBackup(copy, k))
            CopyUpdate(copy, *backup, work_, record_).run(members_, unreadable_);
    }

    std::optional<fs::path> makeBackup(const FolderItem& copy, std::size_t k) {
        const std::string name = backupFolderName(dictionary_.Name(), k, backups_);
        fs::path backup = backups_.path() / name;
        if (makeFolder(backup) && flushFolder(backups_.path()))
            return backup;
        fail(copy, "it was not updated, since its backup folder \"" + toValidUtf8(name) +
                       "\" could not be made: " + errorInWords(errno));
        return std::nullopt;
    }

    /// Moves to a backup what a killed run has replaced in the copy, so that it is not mixed with what is replaced now.
    bool saveLeftover(const fs::path& leftover, const FolderItem& copy, std::size_t k) {
        const auto backup = makeBackup(copy, k);
        const auto members = membersIn(leftover / kOldMembers);
        if (!members)
            fail(FolderItem(leftover), "it cannot be listed");
        if (!backup || !members)
            return false;
        Moves moves;
        for (const fs::path& old : *members) {
            if (!moves.move(old, *backup, backups_.path(), work_, record_.failures))
                return false;
        }
        return removeTree(leftover, work_);
    }

    const FolderItem& dictionary_;
    const FolderItem& backups_;
    Work work_;
    std::map<std::string, TreePlan> members_;
    std::vector<std::string> unreadable_;
    Record record_;
};

} // namespace

std::vector<FolderItem> installedCopies(const FolderItem& dictionaryFolder, std::string_view name,
                                        const Progress& progress) {
    const Work work(progress);
    const std::string folded = foldedFileName(name);
    std::vector<FolderItem> copies;
    for (const FolderItem& group : dictionaryFolder.items()) {
        work.pass();
        if (!isTrueFolder(group))
            continue;
        for (const FolderItem& item : group.items()) {
            work.pass();
            if (foldedFileName(item.Name()) == folded && isTrueFolder(item) &&
                (mSub_DicOrNot(item) || holdsLeftovers(item.path())))
                copies.push_back(item);
        }
    }
    return copies;
}

Record updateDictionary(const FolderItem& dictionary, const std::vector<FolderItem>& copies, const FolderItem& backups,
                        const Progress& progress) {
    return Updater(dictionary, backups, progress).run(copies);
}

} // namespace velmarin
