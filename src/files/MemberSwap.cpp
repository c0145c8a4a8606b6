#include "files/MemberSwap.h"

#include "files/FolderItem.h"
#include "files/RemoveTree.h"
#include "files/SystemCalls.h"
#include "text/UnicodeForms.h"

#include <algorithm>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

bool occupied(const fs::path& path) {
    return FolderItem(path).occupied();
}

} // namespace

std::string replacedBy(const std::string& oldName, const std::vector<std::string>& names) {
    if (std::find(names.begin(), names.end(), oldName) != names.end())
        return oldName;
    const std::string folded = foldedFileName(oldName);
    const auto alike = std::find_if(names.begin(), names.end(),
                                    [&](const std::string& name) { return foldedFileName(name) == folded; });
    return alike == names.end() ? std::string() : *alike;
}

std::optional<std::vector<fs::path>> oldMembersIn(const fs::path& hidden) {
    const auto names = listNames(hidden / kOldMembers);
    if (!names)
        return std::nullopt;
    std::vector<fs::path> members;
    for (const std::string& name : *names)
        members.push_back(hidden / kOldMembers / name);
    return members;
}

bool undoSwap(const fs::path& hidden, const fs::path& folder, const std::vector<std::string>& names, Work& work) {
    for (const std::string& name : names) {
        const fs::path waiting = hidden / kNewMembers / name;
        if (!occupied(waiting) && occupied(folder / name) && !renameItem(folder / name, waiting))
            return false;
    }
    const auto old = listNames(hidden / kOldMembers);
    if (!old)
        return false;
    for (const std::string& name : *old) {
        if (replacedBy(name, names).empty())
            continue;
        // One that could only be copied aside has left what was not removed yet of it.
        if (occupied(hidden / kCopiedMembers / name) && !removeTree(folder / name, work))
            return false;
        if (!renameItem(hidden / kOldMembers / name, folder / name))
            return false;
    }
    return flushFolder(folder);
}

} // namespace velmarin
