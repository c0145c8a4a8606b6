#include "files/MovedOut.h"

#include "files/AtomicFile.h"
#include "files/FolderChanges.h"
#include "files/StagedItem.h"
#include "files/TemporaryName.h"
#include "files/TreePlan.h"

#include <cerrno>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

/// A copy of `member` in `backup`, known to be equal to it. False, with the failures, where there is none.
bool copyToBackup(const fs::path& member, const fs::path& backup, Work& work, std::vector<CopyFailure>& failures) {
    TreePlan plan = planTree(member, backup, Links::Kept, Purpose::Move, work);
    failures.insert(failures.end(), plan.unreadable.begin(), plan.unreadable.end());
    for (const CopyFailure& each : plan.leftOut)
        failures.push_back({each.item, "it cannot be copied to the backup folder, so that nothing here was replaced"});
    if (!plan.whole() || !plan.leftOut.empty())
        return false;
    auto staged = StagedItem::copy(plan, backup.parent_path(), work, failures);
    if (!staged)
        return false;
    const auto fail = [&](const std::string& reason) {
        failures.push_back({FolderItem(member), "it could not be saved in the backup folder: " + reason});
        return false;
    };
    // Planned anew, so that what came in meanwhile is missed in the copy.
    plan = planTree(member, backup, Links::Kept, Purpose::Move, work);
    if (!plan.leftOut.empty() || !sameContents(plan, staged->path(), work))
        return fail("the copy is not the same");
    if (!staged->moveTo(backup / member.filename()) || !flushFolder(backup))
        return fail(errorInWords(errno));
    return true;
}

} // namespace

std::optional<MovedOut> MovedOut::toBackup(const fs::path& member, const fs::path& backup, Work& work,
                                           std::vector<CopyFailure>& failures) {
    const fs::path inBackup = backup / member.filename();
    const auto fail = [&](int error) {
        failures.push_back({FolderItem(member), "it could not be moved to the backup folder: " + errorInWords(error)});
        return std::nullopt;
    };
    if (renameToFreeName(member, inBackup)) {
        MovedOut moved(member, inBackup, inBackup);
        if (flushFolder(backup))
            return moved;
        const int error = errno;
        if (!moved.putBack())
            failures.push_back({FolderItem(inBackup), "it was moved here and could not be moved back"});
        return fail(error);
    }
    if (errno != EXDEV)
        return fail(errno);
    if (!copyToBackup(member, backup, work, failures))
        return std::nullopt;
    const fs::path hidden = member.parent_path() / newTemporaryName();
    if (!renameToFreeName(member, hidden))
        return fail(errno);
    return MovedOut(member, inBackup, hidden);
}

bool MovedOut::putBack() const {
    return renameToFreeName(original_, member_);
}

bool MovedOut::finish(Work& work) const {
    return original_ == inBackup_ || removeTree(original_, work);
}

} // namespace velmarin
