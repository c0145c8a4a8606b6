#include "files/Moves.h"

#include "files/RemoveTree.h"
#include "files/StagedMembers.h"
#include "files/SystemCalls.h"
#include "files/VerifiedCopy.h"

#include <cerrno>

namespace velmarin {

namespace fs = std::filesystem;

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
    const auto staged = StagedMembers::in(staging);
    if (!staged) {
        failures.push_back({FolderItem(place), "it could not be written: " + errorInWords(errno)});
        return false;
    }
    if (!copyVerified(item, place, staged->placeOf(place.filename().native()), work, failures))
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
