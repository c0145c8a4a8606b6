#include "files/Leftovers.h"

#include "files/Descriptor.h"
#include "files/FolderItem.h"
#include "files/SystemCalls.h"
#include "files/TemporaryName.h"
#include "files/TextFile.h"
#include "text/StringFields.h"
#include "text/UnicodeForms.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

bool occupied(const fs::path& path) {
    return FolderItem(path).occupied();
}

/// Gives every member its place back, and removes the folder of the swap.
bool undoWholeSwap(const fs::path& hidden, const fs::path& folder, Work& work) {
    const auto list = readWholeFile(FolderItem(hidden / kMemberList));
    return list && undoSwap(hidden, folder, Split(*list, "/"), work) && removeTree(hidden, work);
}

Descriptor openLeftover(const fs::path& path) {
    return Descriptor(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
}

/// Whether a folder of replaced members holds none any more.
bool isEmptied(const fs::path& hidden) {
    const auto names = listNames(hidden);
    return names && std::all_of(names->begin(), names->end(), [&](const std::string& name) {
               return name == kNewMembers || name == kMemberList || name == kCopiedMembers ||
                      (name == kOldMembers && listNames(hidden / name) == std::vector<std::string>());
           });
}

} // namespace

bool removeTree(const fs::path& item, Work& work) {
    work.pass();
    struct stat found {};
    if (::lstat(item.c_str(), &found) != 0)
        return errno == ENOENT;
    if (!S_ISDIR(found.st_mode))
        return ::unlink(item.c_str()) == 0;
    if ((found.st_mode & S_IRWXU) != S_IRWXU)
        ::chmod(item.c_str(), 0700);
    int firstError = 0;
    const auto names = listNames(item);
    if (!names)
        firstError = errno;
    else
        for (const std::string& name : *names) {
            if (!removeTree(item / name, work) && firstError == 0)
                firstError = errno;
        }
    if (::rmdir(item.c_str()) == 0)
        return true;
    errno = firstError != 0 ? firstError : errno;
    return false;
}

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
            ::unlink(path.c_str());
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

std::vector<fs::path> unsavedMembers(const fs::path& folder) {
    std::vector<fs::path> found;
    for (const std::string& name : listNames(folder).value_or(std::vector<std::string>())) {
        if (temporaryKind(name) == TemporaryKind::Replaced && lockAlone(openLeftover(folder / name)))
            found.push_back(folder / name);
    }
    return found;
}

std::string replacedBy(const std::string& oldName, const std::vector<std::string>& names) {
    if (std::find(names.begin(), names.end(), oldName) != names.end())
        return oldName;
    const std::string folded = foldedFileName(oldName);
    const auto alike = std::find_if(names.begin(), names.end(),
                                    [&](const std::string& name) { return foldedFileName(name) == folded; });
    return alike == names.end() ? std::string() : *alike;
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
