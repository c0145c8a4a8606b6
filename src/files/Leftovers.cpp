#include "files/Leftovers.h"

#include "files/Descriptor.h"
#include "files/FolderItem.h"
#include "files/MemberSwap.h"
#include "files/ReadOnlyFile.h"
#include "files/RemoveTree.h"
#include "files/SystemCalls.h"
#include "files/TemporaryName.h"
#include "text/StringFields.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

/// Gives every member its place back, and removes the folder of the swap.
bool undoWholeSwap(const fs::path& hidden, const fs::path& folder, Work& work) {
    const auto list = readWholeFile(FolderItem(hidden / kMemberList));
    return list && undoSwap(hidden, folder, Split(*list, "/"), work) && removeTree(hidden, work);
}

Descriptor openLeftover(const fs::path& path) {
    return Descriptor(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
}

/// Whether a folder of replaced members is empty now.
bool isEmptied(const fs::path& hidden) {
    const auto names = listNames(hidden);
    return names && std::all_of(names->begin(), names->end(), [&](const std::string& name) {
               return name == kNewMembers || name == kMemberList || name == kCopiedMembers ||
                      (name == kOldMembers && listNames(hidden / name) == std::vector<std::string>());
           });
}

} // namespace

void clearLeftovers(const fs::path& folder, Work& work) {
    const auto names = listNames(folder);
    if (!names)
        return;
    for (const std::string& name : *names) {
        const auto kind = temporaryKind(name);
        if (!kind)
            continue;
        const fs::path path = folder / name;
        if (FolderItem(path).Alias()) { // a link cannot be locked
            removeFile(path);
            continue;
        }
        const Descriptor opened = openLeftover(path);
        if (!lockAlone(opened))
            continue;
        if (*kind == TemporaryKind::Swap)
            undoWholeSwap(path, folder, work);
        else if (*kind == TemporaryKind::Staged || isEmptied(path))
            removeTree(path, work);
    }
}

bool holdsLeftovers(const fs::path& folder) {
    const auto names = listNames(folder);
    return names && std::any_of(names->begin(), names->end(), isTemporaryName);
}

bool holdsInterruptedSwap(const fs::path& folder) {
    const auto names = listNames(folder);
    return names && std::any_of(names->begin(), names->end(), [&](const std::string& name) {
               if (temporaryKind(name) != TemporaryKind::Swap)
                   return false;
               const Descriptor opened = openLeftover(folder / name);
               return !opened || lockAlone(opened) || errno != EWOULDBLOCK; // a running swap is locked
           });
}

bool removeSaved(const fs::path& hidden, Work& work) {
    const std::string name = hidden.filename().native();
    const fs::path trash = hidden.parent_path() / temporaryNameAs(TemporaryKind::Staged, name);
    if (temporaryKind(name) != TemporaryKind::Replaced)
        return removeTree(hidden, work);
    return renameToFreeName(hidden, trash) && removeTree(trash, work);
}

std::vector<fs::path> unsavedMembers(const fs::path& folder) {
    std::vector<fs::path> found;
    for (const std::string& name : listNames(folder).value_or(std::vector<std::string>())) {
        if (temporaryKind(name) == TemporaryKind::Replaced && lockAlone(openLeftover(folder / name)))
            found.push_back(folder / name);
    }
    return found;
}

} // namespace velmarin
