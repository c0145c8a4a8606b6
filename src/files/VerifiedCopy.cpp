#include "files/VerifiedCopy.h"

#include "files/SystemCalls.h"
#include "files/TreeCompare.h"
#include "files/TreeCopy.h"

#include <cerrno>

namespace velmarin {

namespace fs = std::filesystem;

bool copyVerified(const fs::path& item, const fs::path& place, const fs::path& hidden, Work& work, Failures& failures) {
    TreePlan plan = planTree(item, place.parent_path(), Links::Kept, Purpose::Move, work);
    failures.insert(failures.end(), plan.unreadable.begin(), plan.unreadable.end());
    failures.insert(failures.end(), plan.leftOut.begin(), plan.leftOut.end());
    if (!plan.whole() || !plan.leftOut.empty() || copyTree(plan, hidden, place, work, failures) != CopyOutcome::Whole)
        return false;
    const auto fail = [&](std::string reason) {
        failures.push_back({FolderItem(place), "it could not be written: " + std::move(reason)});
        return false;
    };
    // Planned again, so that what came in meanwhile is missed in the copy.
    plan = planTree(item, place.parent_path(), Links::Kept, Purpose::Move, work);
    if (!plan.leftOut.empty() || !sameContents(plan, hidden, work))
        return fail("the copy is not the same");
    if (!renameItem(hidden, place) || !flushFolder(place.parent_path()))
        return fail(errorInWords(errno));
    return true;
}

} // namespace velmarin
