#include "files/AtomicFile.h"

#include "files/Descriptor.h"
#include "files/FolderItem.h"
#include "files/TemporaryName.h"

#include <cerrno>
#include <optional>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

WriteResult failure(const fs::path& path, std::string_view why) {
    return {.ok = false, .reason = "\"" + path.native() + "\" could not be written: " + std::string(why)};
}

/// Where the bytes go: the end of a chain of links, which may not exist yet.
std::optional<fs::path> endOfLinks(fs::path path) {
    constexpr int kMostLinks = 40;
    std::error_code error;
    for (int links = 0; links < kMostLinks; ++links) {
        if (!fs::is_symlink(fs::symlink_status(path, error)))
            return path;
        const fs::path target = fs::read_symlink(path, error);
        if (error)
            return std::nullopt;
        path = path.parent_path() / target;
    }
    return std::nullopt;
}

/// Some file systems cannot flush a folder or a file on demand; that is no failure of the write.
bool flush(int descriptor) {
    int result = 0;
    do
        result = ::fsync(descriptor);
    while (result != 0 && errno == EINTR);
    return result == 0 || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS;
}

bool flushFolder(const fs::path& folder) {
    const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return !opened || flush(opened.number()); // a folder that may be written but not read cannot be flushed
}

/// A temporary file on its way to its name, removed again unless it gets there. It is locked for as long as it is open,
/// which tells it from the leftover of a run that was killed.
class TemporaryFile {
  public:
    TemporaryFile() = default;
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        const int error = errno;
        if (!path_.empty())
            ::unlink(path_.c_str());
        errno = error;
    }

    bool make(const fs::path& folder) {
        constexpr int kAttempts = 100;
        for (int attempt = 0; attempt < kAttempts; ++attempt) {
            const fs::path path = folder / newTemporaryName();
            Descriptor made(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
            if (!made) {
                if (errno == EEXIST || errno == EINTR)
                    continue;
                return false;
            }
            // Between these lines another process may take the file for a leftover: it is then gone, or about to go.
            const bool taken = ::flock(made.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
            struct stat found {};
            if (!taken && ::fstat(made.number(), &found) == 0 && found.st_nlink > 0) {
                path_ = path;
                descriptor_ = std::move(made);
                return true;
            }
        }
        errno = EEXIST;
        return false;
    }

    /// The owner and permissions of the file that is to be replaced; what cannot be kept there is let go.
    bool keepMode(const struct stat& old) {
        [[maybe_unused]] const int ignored = ::fchown(descriptor_.number(), old.st_uid, old.st_gid);
        return ::fchmod(descriptor_.number(), old.st_mode & 07777) == 0 || errno == EPERM || errno == ENOTSUP;
    }

    bool write(std::string_view bytes) {
        const std::size_t size = bytes.size();
        while (!bytes.empty()) {
            const ssize_t done = ::write(descriptor_.number(), bytes.data(), bytes.size());
            if (done < 0 && errno == EINTR)
                continue;
            if (done <= 0) {
                errno = done == 0 ? ENOSPC : errno;
                return false;
            }
            bytes.remove_prefix(static_cast<std::size_t>(done));
        }
        struct stat found {};
        if (::fstat(descriptor_.number(), &found) != 0)
            return false;
        errno = EIO;
        return static_cast<std::uint64_t>(found.st_size) == size;
    }

    /// Network file systems tell of a failed write at the latest when a descriptor is closed: a second one is, so that
    /// the lock stays.
    bool arrived(Durability durability) {
        if (durability == Durability::Flushed)
            return flush(descriptor_.number());
        const int second = ::fcntl(descriptor_.number(), F_DUPFD_CLOEXEC, 0);
        return second >= 0 && (::close(second) == 0 || errno == EINTR);
    }

    bool moveTo(const fs::path& path) {
        if (::rename(path_.c_str(), path.c_str()) != 0)
            return false;
        path_.clear();
        return true;
    }

  private:
    Descriptor descriptor_;
    fs::path path_;
};

} // namespace

std::string errorInWords(int error) {
    return std::error_code(error, std::generic_category()).message();
}

void clearLeftoverTemporaries(const fs::path& folder) {
    const auto names = listNames(folder);
    if (!names)
        return;
    for (const std::string& name : *names) {
        if (!isTemporaryName(name) || isSetAsideName(name))
            continue;
        const fs::path path = folder / name;
        const Descriptor opened(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
        struct stat found {};
        if (!opened || ::fstat(opened.number(), &found) != 0 || !(S_ISREG(found.st_mode) || S_ISDIR(found.st_mode)))
            continue;
        std::error_code ignored;
        if (::flock(opened.number(), LOCK_EX | LOCK_NB) == 0)
            fs::remove_all(path, ignored);
    }
}

WriteResult writeFileAtomically(const fs::path& path, std::string_view bytes, Durability durability) {
    const auto target = endOfLinks(path);
    if (!target)
        return failure(path, "it is a link that leads nowhere");
    const fs::path folder = target->has_parent_path() ? target->parent_path() : fs::path(".");
    struct stat old {};
    const bool replaces = ::lstat(target->c_str(), &old) == 0;
    if (replaces && !S_ISREG(old.st_mode))
        return failure(path, "it is not a file");
    // A rename would get past the write protection of the file itself.
    if (replaces && ::faccessat(AT_FDCWD, target->c_str(), W_OK, AT_EACCESS) != 0)
        return failure(path, errorInWords(errno));
    if (durability == Durability::Flushed)
        clearLeftoverTemporaries(folder);

    TemporaryFile temporary;
    if (!temporary.make(folder) || (replaces && !temporary.keepMode(old)) || !temporary.write(bytes) ||
        !temporary.arrived(durability) || !temporary.moveTo(*target))
        return failure(path, errorInWords(errno));
    if (durability == Durability::Flushed && !flushFolder(folder))
        return failure(path, errorInWords(errno));
    return {};
}

} // namespace velmarin
