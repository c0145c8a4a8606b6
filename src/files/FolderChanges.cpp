#include "files/FolderChanges.h"

#include "files/Descriptor.h"
#include "files/FolderItem.h"
#include "files/TemporaryName.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

/// Gives what was set aside its name back, unless something new bears it, be it in other case. False where something
/// could not be.
bool emptied(const fs::path& setAside) {
    const auto names = listNames(setAside);
    if (!names)
        return false;
    const FolderItem folder(setAside.parent_path());
    return std::all_of(names->begin(), names->end(), [&](const std::string& name) {
        return folder.Child(name).occupied() || renameToFreeName(setAside / name, folder.path() / name);
    });
}

} // namespace

bool flushOpen(int descriptor) {
    int result = 0;
    do
        result = ::fsync(descriptor);
    while (result != 0 && errno == EINTR);
    return result == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
}

bool flushFolder(const fs::path& folder) {
    const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened)
        return errno == EACCES; // a folder that may be written but not read cannot be flushed
    return flushOpen(opened.number());
}

bool isDiskError(int error) {
    return error == EIO || error == ENOSPC || error == EDQUOT || error == EFBIG || error == EROFS;
}

bool setAttributes(int descriptor, mode_t permissions, const timespec& read, const timespec& changed) {
    const std::array times{read, changed};
    return (::fchmod(descriptor, permissions) == 0 || !isDiskError(errno)) &&
           (::futimens(descriptor, times.data()) == 0 || !isDiskError(errno));
}

bool renameToFreeName(const fs::path& from, const fs::path& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    // Either the file system does not know the flag, or the folder would move into itself: the plain rename tells.
    if (FolderItem(to).occupied()) {
        errno = EEXIST;
        return false;
    }
    return ::rename(from.c_str(), to.c_str()) == 0;
}

bool exchangeNames(const fs::path& one, const fs::path& other) {
    if (::renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE) == 0)
        return true;
    if (errno == ENOSYS)
        errno = EINVAL;
    return false;
}

bool removeTree(const fs::path& item, Work& work) {
    work.pass();
    struct stat found {};
    if (::lstat(item.c_str(), &found) != 0)
        return errno == ENOENT;
    if (!S_ISDIR(found.st_mode))
        return ::unlink(item.c_str()) == 0;
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

bool makeFolder(const fs::path& folder) {
    return ::mkdir(folder.c_str(), 0777) == 0;
}

bool SetAside::putBack(const fs::path& item) const {
    if (!renameToFreeName(folder / item.filename(), item))
        return false;
    ::rmdir(folder.c_str());
    return true;
}

std::optional<SetAside> setAside(const fs::path& item) {
    SetAside made{item.parent_path() / newSetAsideName(), {}};
    if (!makeFolder(made.folder))
        return std::nullopt;
    made.lock = Descriptor(::open(made.folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (made.lock)
        ::flock(made.lock.number(), LOCK_EX | LOCK_NB);
    if (renameToFreeName(item, made.folder / item.filename()))
        return made;
    const int error = errno;
    ::rmdir(made.folder.c_str());
    errno = error;
    return std::nullopt;
}

void clearLeftovers(const fs::path& folder, Work& work) {
    const auto names = listNames(folder);
    if (!names)
        return;
    for (const std::string& name : *names) {
        if (!isTemporaryName(name))
            continue;
        const fs::path path = folder / name;
        if (FolderItem(path).Alias()) { // a link cannot be locked
            ::unlink(path.c_str());
            continue;
        }
        const Descriptor opened(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
        if (opened && ::flock(opened.number(), LOCK_EX | LOCK_NB) == 0 && (!isSetAsideName(name) || emptied(path)))
            removeTree(path, work);
    }
}

bool holdsLeftovers(const fs::path& folder) {
    const auto names = listNames(folder);
    return names && std::any_of(names->begin(), names->end(), isTemporaryName);
}

} // namespace velmarin
