#include "maintenance/Update.h"

#include "files/AtomicFile.h"
#include "files/FolderChanges.h"
#include "files/FolderListing.h"
#include "files/MovedOut.h"
#include "files/StagedItem.h"
#include "files/TreePlan.h"
#include "store/DictionaryItem.h"
#include "store/Fi_Module.h"
#include "text/StringRules.h"

#include <cerrno>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

struct NewMember {
    FolderItem item;
    TreePlan plan;
};

bool isTrueFolder(const FolderItem& item) {
    return !item.Alias() && item.Directory();
}

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

    void planMembers(std::size_t copies) {
        for (const FolderItem& item : dictionary_.items()) {
            if (!item.Visible())
                continue;
            NewMember member{item, planTree(item.path(), {}, Links::Kept, Purpose::Copy, work_)};
            const TreePlan& plan = member.plan;
            record_.failures.insert(record_.failures.end(), plan.unreadable.begin(), plan.unreadable.end());
            record_.failures.insert(record_.failures.end(), plan.leftOut.begin(), plan.leftOut.end());
            if (!plan.whole())
                continue;
            work_.expect(plan.bytes * copies);
            members_.push_back(std::move(member));
        }
    }

    void updateCopy(const FolderItem& copy, std::size_t k) {
        if (liesIn(copy.path(), dictionary_.path()) || liesIn(dictionary_.path(), copy.path()))
            return fail(copy, "it is the chosen folder itself or a part of it, and was not updated");
        clearLeftovers(copy.path(), work_);
        const std::string name =
            mFiMod_GetUniqueFileName(dictionary_.Name() + "-Oldversion-" + Str(static_cast<std::int64_t>(k)), backups_);
        const fs::path backup = backups_.path() / name;
        if (!makeFolder(backup) || !flushFolder(backups_.path()))
            return fail(copy, "it was not updated, since its backup folder \"" + toValidUtf8(name) +
                                  "\" could not be made: " + errorInWords(errno));
        const FolderListing chosen(dictionary_);
        const std::vector<FolderItem> oldMembers = copy.items();
        for (const NewMember& member : members_) {
            std::vector<FolderItem> replaced;
            for (const FolderItem& old : oldMembers) {
                if (old.Visible() && chosen.Child(old.Name()) == member.item)
                    replaced.push_back(old);
            }
            updateMember(member, copy, replaced, backup);
            work_.pass();
        }
    }

    void updateMember(const NewMember& member, const FolderItem& copy, const std::vector<FolderItem>& replaced,
                      const fs::path& backup) {
        auto staged = StagedItem::copy(member.plan, copy.path(), work_, record_.failures);
        if (!staged)
            return;
        std::vector<MovedOut> out;
        for (const FolderItem& old : replaced) {
            auto moved = MovedOut::toBackup(old.path(), backup, work_, record_.failures);
            if (!moved)
                return putBack(out);
            out.push_back(std::move(*moved));
        }
        const FolderItem target(copy.path() / member.item.Name());
        if (!staged->moveTo(target.path())) {
            fail(target, "it could not be given its name: " + errorInWords(errno));
            return putBack(out);
        }
        for (const MovedOut& old : out)
            record_.deeds.push_back({Deed::BackedUp, FolderItem(old.inBackup())});
        record_.deeds.push_back({out.empty() ? Deed::Added : Deed::Replaced, target});
        if (!flushFolder(copy.path()))
            return fail(target, errorInWords(errno));
        for (const MovedOut& old : out) {
            if (!old.finish(work_))
                fail(target,
                     "what stood there before is saved, but could not be removed altogether: " + errorInWords(errno));
        }
    }

    void putBack(const std::vector<MovedOut>& out) {
        for (const MovedOut& old : out) {
            if (!old.putBack())
                fail(FolderItem(old.inBackup()), "it was moved here and could not be moved back");
        }
    }

    const FolderItem& dictionary_;
    const FolderItem& backups_;
    Work work_;
    std::vector<NewMember> members_;
    Record record_;
};

} // namespace

std::vector<FolderItem> installedCopies(const FolderItem& dictionaryFolder, std::string_view name,
                                        const Progress& progress) {
    const Work work(progress);
    std::vector<FolderItem> copies;
    for (const FolderItem& group : dictionaryFolder.items()) {
        work.pass();
        if (!isTrueFolder(group))
            continue;
        for (const FolderItem& item : group.items()) {
            work.pass();
            if (equalStrings(item.Name(), name) && isTrueFolder(item) &&
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
