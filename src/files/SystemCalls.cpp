#include "files/SystemCalls.h"

#include "files/TemporaryName.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace velmarin {

namespace fs = std::filesystem;

std::string errorInWords(int error) {
    return std::error_code(error, std::generic_category()).message();
}

bool isDiskError(int error) {
    return error == EIO || error == ENOSPC || error == EDQUOT || error == EFBIG || error == EROFS;
}

std::optional<std::size_t> readAt(int descriptor, std::uint64_t offset, void* to, std::size_t count) {
    std::size_t done = 0;
    while (done < count) {
        const ssize_t got =
            ::pread(descriptor, static_cast<char*>(to) + done, count - done, static_cast<off_t>(offset + done));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return std::nullopt;
        if (got == 0)
            break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}

bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t done = ::write(descriptor, bytes.data(), bytes.size());
        if (done < 0 && errno == EINTR)
            continue;
        if (done <= 0) {
            errno = done == 0 ? ENOSPC : errno;
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(done));
    }
    return true;
}

bool flushOpen(int descriptor) {
    int result = 0;
    do
        result = ::fsync(descriptor);
    while (result != 0 && errno == EINTR);
    return result == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
}

bool flushFolder(const fs::path& folder) {
    const Descriptor opened = openFolder(folder);
    if (!opened)
        return errno == EACCES;
    return flushOpen(opened.number());
}

bool setAttributes(int descriptor, mode_t permissions, const timespec& read, const timespec& changed) {
    const std::array times{read, changed};
    return (::fchmod(descriptor, permissions) == 0 || !isDiskError(errno)) &&
           (::futimens(descriptor, times.data()) == 0 || !isDiskError(errno));
}

bool makeFolder(const fs::path& folder, mode_t permissions) {
    return ::mkdir(folder.c_str(), permissions) == 0;
}

Descriptor makeFile(const fs::path& file, mode_t permissions) {
    int opened = -1;
    do
        opened = ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, permissions);
    while (opened < 0 && errno == EINTR);
    return Descriptor(opened);
}

bool makeLink(const std::string& target, const fs::path& link) {
    return ::symlink(target.c_str(), link.c_str()) == 0;
}

bool removeFile(const fs::path& file) {
    return ::unlink(file.c_str()) == 0;
}

bool removeEmptyFolder(const fs::path& folder) {
    return ::rmdir(folder.c_str()) == 0;
}

bool openToOwner(const fs::path& folder) {
    return ::chmod(folder.c_str(), 0700) == 0;
}

ssize_t copyByKernel(int from, int to, std::size_t most) {
    ssize_t done = 0;
    do
        done = ::copy_file_range(from, nullptr, to, nullptr, most, 0);
    while (done < 0 && errno == EINTR);
    return done;
}

bool writeOut(int descriptor, std::uint64_t from, std::uint64_t end, WriteOut how) {
    constexpr unsigned wait = SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
    const unsigned flags = how == WriteOut::Wait ? wait : SYNC_FILE_RANGE_WRITE;
    return ::sync_file_range(descriptor, static_cast<off64_t>(from), static_cast<off64_t>(end - from), flags) == 0 ||
           !isDiskError(errno);
}

bool closeDuplicate(int descriptor) {
    const int second = ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
    return second >= 0 && (::close(second) == 0 || errno == EINTR);
}

bool keepOwnerAndMode(int descriptor, const struct stat& old) {
    [[maybe_unused]] const int ignored = ::fchown(descriptor, old.st_uid, old.st_gid);
    return ::fchmod(descriptor, old.st_mode & 07777) == 0 || errno == EPERM || errno == ENOTSUP;
}

bool makeLinkTo(const fs::path& target, const fs::path& link) {
    struct stat old {};
    const bool replaces = ::lstat(link.c_str(), &old) == 0;
    if (replaces && !S_ISLNK(old.st_mode)) {
        errno = EEXIST;
        return false;
    }
    if (!replaces)
        return ::symlink(target.c_str(), link.c_str()) == 0;
    const fs::path place = link.parent_path() / newTemporaryName();
    if (::symlink(target.c_str(), place.c_str()) != 0)
        return false;
    if (::rename(place.c_str(), link.c_str()) == 0)
        return true;
    const int error = errno;
    ::unlink(place.c_str());
    errno = error;
    return false;
}

Descriptor openFolder(const fs::path& folder) {
    return Descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

bool lockAlone(const Descriptor& opened) {
    return opened && ::flock(opened.number(), LOCK_EX | LOCK_NB) == 0;
}

bool lockFresh(const Descriptor& made) {
    struct stat found {};
    return (lockAlone(made) || errno != EWOULDBLOCK) && ::fstat(made.number(), &found) == 0 && found.st_nlink > 0;
}

bool renameOver(const fs::path& from, const fs::path& to) {
    return ::rename(from.c_str(), to.c_str()) == 0;
}

bool renameToFreeName(const fs::path& from, const fs::path& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    // Either the file system does not know the flag, or the folder would move into itself: the plain rename tells.
    struct stat taken {};
    if (::lstat(to.c_str(), &taken) == 0) {
        errno = EEXIST;
        return false;
    }
    return renameOver(from, to);
}

bool renameItem(const fs::path& from, const fs::path& to) {
    if (renameToFreeName(from, to))
        return true;
    if (errno != EACCES && errno != EPERM)
        return false;
    const int error = errno;
    const WriteAccess access(from);
    if (!access.changed()) {
        errno = error;
        return false;
    }
    return renameToFreeName(from, to);
}

bool exchangeNames(const fs::path& one, const fs::path& other) {
    if (::renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE) == 0)
        return true;
    if (errno == ENOSYS)
        errno = EINVAL;
    return false;
}

WriteAccess::WriteAccess(const fs::path& folder) {
    Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat found {};
    if (!opened || ::fstat(opened.number(), &found) != 0 || (found.st_mode & S_IWUSR) != 0 ||
        ::fchmod(opened.number(), (found.st_mode & 07777) | S_IRWXU) != 0)
        return;
    permissions_ = found.st_mode & 07777;
    folder_ = std::move(opened);
}

WriteAccess::~WriteAccess() {
    const int error = errno;
    if (folder_) [[maybe_unused]]
        const int ignored = ::fchmod(folder_.number(), permissions_);
    errno = error;
}

} // namespace velmarin
