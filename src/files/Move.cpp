#include "files/Move.h"

#include "files/Leftovers.h"
#include "files/StagedMembers.h"
#include "files/SystemCalls.h"
#include "files/TreeCompare.h"
#include "files/TreePlan.h"

#include <cerrno>

namespace velmarin {

namespace fs = std::filesystem;

bool copyVerified(const fs::path& item, const fs::path& place, const fs::path& staging, Work& work,
                  Failures& failures) {
    TreePlan plan = planTree(item, place.parent_path(), Links::Kept, Purpose::Move, work);
    failures.insert(failures.end(), plan.unreadable.begin(), plan.unreadable.end());
    failures.insert(failures.end(), plan.leftOut.begin(), plan.leftOut.end());
    if (!plan.whole() || !plan.leftOut.empty())
        return false;
    const auto fail = [&](std::string reason) {
        failures.push_back({FolderItem(place), "it could not be written: " + std::move(reason)});
        return false;
    };
    auto staged = StagedMembers::in(staging);
    if (!staged)
        return fail(errorInWords(errno));
    const std::string name = place.filename().native();
    if (copyTree(plan, staged->placeOf(name), place, work, failures) != CopyOutcome::Whole)
        return false;
    // Planned again, so that what came in meanwhile is missed in the copy.
    plan = planTree(item, place.parent_path(), Links::Kept, Purpose::Move, work);
    if (!plan.leftOut.empty() || !sameContents(plan, staged->placeOf(name), work))
        return fail("the copy is not the same");
    if (!renameItem(staged->placeOf(name), place) || !flushFolder(place.parent_path()))
        return fail(errorInWords(errno));
    return true;
}

std::optional<std::vector<fs::path>> membersIn(const fs::path& folder) {
    const auto names = listNames(folder);
    if (!names)
        return std::nullopt;
    std::vector<fs::path> members;
    members.reserve(names->size());
    for (const std::string& name : *names)
        members.push_back(folder / name);
    return members;
}

bool Moves::move(const fs::path& item, const fs::path& folder, const fs::path& staging, Work& work,
                 Failures& failures) {
    const fs::path place = folder / item.filename();
    if (renameItem(item, place)) {
        done_.push_back({item, place, false});
        if (flushFolder(folder))
            return true;
        failures.push_back({FolderItem(folder), "it could not be written: " + errorInWords(errno)});
        return false;
    }
    if (errno != EXDEV) {
        failures.push_back({FolderItem(place), "it could not be written: " + errorInWords(errno)});
        return false;
    }
    if (!copyVerified(item, place, staging, work, failures))
        return false;
    done_.push_back({item, place, true});
    return true;
}

bool Moves::undo(Work& work, Failures& failures) {
    bool all = true;
    for (auto each = done_.rbegin(); each != done_.rend(); ++each) {
        if (each->copied) {
            removeTree(each->to, work);
        } else if (!renameItem(each->to, each->from)) {
            failures.push_back(
                {FolderItem(each->to), "it was moved here and could not be moved back: " + errorInWords(errno)});
            all = false;
        }
    }
    done_.clear();
    return all;
}

bool Moves::finish(Work& work, Failures& failures) {
    bool all = true;
    for (const Each& each : done_) {
        if (each.copied && !removeTree(each.from, work)) {
            failures.push_back(
                {FolderItem(each.from), "it was copied, but could not be removed altogether: " + errorInWords(errno)});
            all = false;
        }
    }
    return all;
}

std::vector<fs::path> Moves::moved() const {
    std::vector<fs::path> places;
    for (const Each& each : done_)
        places.push_back(each.to);
    return places;
}

} // namespace velmarin
