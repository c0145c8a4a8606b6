#include "files/FileCopy.h"

#include "files/AtomicFile.h"
#include "files/Descriptor.h"
#include "files/TemporaryName.h"
#include "files/TextFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <optional>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

/// Identity of a folder: device and inode.
using Identity = std::pair<dev_t, ino_t>;

Identity identityOf(const struct stat& found) {
    return {found.st_dev, found.st_ino};
}

std::vector<Identity> folderAndThoseAbove(const fs::path& folder) {
    std::vector<Identity> chain;
    std::error_code error;
    fs::path at = fs::canonical(folder, error);
    if (error)
        return chain;
    for (;; at = at.parent_path()) {
        struct stat found {};
        if (::stat(at.c_str(), &found) == 0)
            chain.push_back(identityOf(found));
        if (!at.has_relative_path())
            return chain;
    }
}

std::string noName(std::string_view name) {
    std::string words = "\"";
    return words.append(name).append("\" is no name for a file or folder");
}

/// False with errno EEXIST where the new name is taken, so that nothing is ever replaced.
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

bool writeAll(int to, const char* bytes, std::size_t count) {
    while (count > 0) {
        const ssize_t done = ::write(to, bytes, count);
        if (done < 0 && errno == EINTR)
            continue;
        if (done <= 0)
            return false;
        bytes += done;
        count -= static_cast<std::size_t>(done);
    }
    return true;
}

/// From where both descriptors stand to the end.
bool copyBytes(int from, int to) {
    constexpr std::size_t kPiece = std::size_t{1} << 20;
    for (;;) {
        const ssize_t done = ::copy_file_range(from, nullptr, to, nullptr, std::size_t{1} << 26, 0);
        if (done < 0 && errno == EINTR)
            continue;
        if (done < 0 && (errno == EIO || errno == ENOSPC || errno == EDQUOT))
            return false;
        if (done <= 0)
            break;
    }
    // Not all file systems can do the above between each other, and some end it early.
    std::vector<char> piece(kPiece);
    for (;;) {
        const ssize_t got = ::read(from, piece.data(), piece.size());
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return false;
        if (got == 0)
            return true;
        if (!writeAll(to, piece.data(), static_cast<std::size_t>(got)))
            return false;
    }
}

class Copier {
  public:
    Copier(Links links, const fs::path& destFolder, const std::function<void()>& afterEach)
        : links_(links), above_(folderAndThoseAbove(destFolder)), afterEach_(afterEach) {}

    void copy(const fs::path& source, const fs::path& destFolder, const std::string& newName) {
        if (!isMemberName(newName))
            return fail(source, noName(newName));
        struct stat found {};
        const int answer = links_ == Links::Kept ? ::lstat(source.c_str(), &found) : ::stat(source.c_str(), &found);
        if (answer != 0)
            return fail(source, errno == ENOENT ? "it is not there" : errorInWords(errno));
        const fs::path target = destFolder / newName;
        if (S_ISDIR(found.st_mode))
            copyFolder(source, target, found);
        else if (S_ISLNK(found.st_mode))
            copyLink(source, target);
        else if (S_ISREG(found.st_mode))
            copyFile(source, target);
        else
            fail(source, "it is neither a file nor a folder");
        if (afterEach_)
            afterEach_();
    }

    std::vector<CopyFailure> takeFailures() { return std::move(failures_); }

  private:
    void fail(const fs::path& item, std::string reason) { failures_.push_back({FolderItem(item), std::move(reason)}); }

    void copyLink(const fs::path& source, const fs::path& target) {
        std::error_code error;
        const fs::path leadsTo = fs::read_symlink(source, error);
        if (error || ::symlink(leadsTo.c_str(), target.c_str()) != 0)
            fail(source, error ? error.message() : errorInWords(errno));
    }

    void copyFile(const fs::path& source, const fs::path& target) {
        if (FolderItem(target).occupied())
            return fail(source, errorInWords(EEXIST));
        const auto from = ReadOnlyFile::open(FolderItem(source));
        struct stat found {};
        if (!from || ::fstat(from->descriptor(), &found) != 0)
            return fail(source, "it cannot be read");
        const fs::path staged = target.parent_path() / newTemporaryName();
        const Descriptor to(::open(staged.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
        if (!to)
            return fail(source, errorInWords(errno));
        ::flock(to.number(), LOCK_EX | LOCK_NB);
        const timespec times[] = {found.st_atim, found.st_mtim};
        if (!copyBytes(from->descriptor(), to.number()) || ::fchmod(to.number(), found.st_mode & 0777) != 0 ||
            ::futimens(to.number(), times) != 0 || !renameToFreeName(staged, target)) {
            fail(source, errorInWords(errno));
            ::unlink(staged.c_str());
        }
    }

    void copyFolder(const fs::path& source, const fs::path& target, const struct stat& found) {
        const Identity self = identityOf(found);
        if (std::find(above_.begin(), above_.end(), self) != above_.end())
            return fail(source, "a folder cannot be copied into itself");
        if (std::find(open_.begin(), open_.end(), self) != open_.end())
            return fail(source, "it is a link back into the folder that is being copied");
        const auto names = listNames(source);
        if (!names)
            return fail(source, "it cannot be listed");

        const bool fillsUp = FolderItem(target).occupied();
        if (fillsUp && (!FolderItem(target).Directory() || FolderItem(target).Alias()))
            return fail(source, errorInWords(EEXIST));
        // Only the outermost folder is staged: those inside it are hidden with it.
        const fs::path filled = fillsUp || !open_.empty() ? target : target.parent_path() / newTemporaryName();
        if (!fillsUp && ::mkdir(filled.c_str(), 0700) != 0)
            return fail(source, errorInWords(errno));
        const Descriptor lock(::open(filled.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (lock && filled != target)
            ::flock(lock.number(), LOCK_EX | LOCK_NB);

        open_.push_back(self);
        for (const std::string& name : *names)
            copy(source / name, filled, name);
        open_.pop_back();

        if (fillsUp)
            return;
        const timespec times[] = {found.st_atim, found.st_mtim};
        ::chmod(filled.c_str(), found.st_mode & 0777);
        ::utimensat(AT_FDCWD, filled.c_str(), times, 0);
        if (filled != target && !renameToFreeName(filled, target)) {
            fail(source, errorInWords(errno));
            std::error_code ignored;
            fs::remove_all(filled, ignored);
        }
    }

    Links links_;
    std::vector<Identity> above_;
    const std::function<void()>& afterEach_;
    std::vector<Identity> open_;
    std::vector<CopyFailure> failures_;
};

} // namespace

std::vector<CopyFailure> copyItem(const FolderItem& source, const FolderItem& destFolder, std::string_view newName,
                                  Links links, const std::function<void()>& afterEach) {
    Copier copier(links, destFolder.path(), afterEach);
    copier.copy(source.path(), destFolder.path(), std::string(newName));
    return copier.takeFailures();
}

std::vector<CopyFailure> moveItem(const FolderItem& source, const FolderItem& destFolder, std::string_view newName) {
    const auto failed = [&](std::string reason) { return std::vector<CopyFailure>{{source, std::move(reason)}}; };
    if (!isMemberName(newName))
        return failed(noName(newName));
    const FolderItem target(destFolder.path() / newName);
    if (target.occupied())
        return failed(errorInWords(EEXIST));
    if (renameToFreeName(source.path(), target.path()))
        return {};
    if (errno != EXDEV)
        return failed(errno == EINVAL ? "a folder cannot be moved into itself" : errorInWords(errno));

    std::error_code error;
    const FolderItem staged(destFolder.path() / newTemporaryName());
    auto failures = copyItem(source, destFolder, staged.Name(), Links::Kept);
    const Descriptor there(::open(destFolder.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (failures.empty() && (!there || ::syncfs(there.number()) != 0))
        failures = failed("the copy could not be flushed to the disk");
    if (failures.empty() && !renameToFreeName(staged.path(), target.path()))
        failures = failed(errorInWords(errno));
    if (!failures.empty()) {
        fs::remove_all(staged.path(), error);
        return failures;
    }
    if (::fsync(there.number()) != 0)
        return failed("it was copied and stays, since the copy's name could not be flushed to the disk");
    fs::remove_all(source.path(), error);
    return error ? failed("it was copied, but could not be removed: " + error.message()) : failures;
}

} // namespace velmarin
