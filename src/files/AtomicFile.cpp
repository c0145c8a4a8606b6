#include "files/AtomicFile.h"

#include "files/Leftovers.h"
#include "files/NewFile.h"
#include "files/SystemCalls.h"
#include "files/TemporaryName.h"

#include <cerrno>
#include <cstdio>
#include <optional>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

Failure notWritten(const fs::path& path, const std::string& why) {
    return {FolderItem(path), "it could not be written: " + why};
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

/// A temporary file on its way to its name, removed again unless it gets there. It is locked while it is open,
/// which tells it from the leftover of a run that was killed.
class TemporaryFile {
  public:
    TemporaryFile() = default;
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        const int error = errno;
        if (!path_.empty())
            removeFile(path_);
        errno = error;
    }

    bool make(const fs::path& folder) {
        constexpr int kAttempts = 100;
        for (int attempt = 0; attempt < kAttempts; ++attempt) {
            const fs::path path = folder / newTemporaryName();
            file_.emplace(path);
            if (!*file_ && errno != EEXIST)
                return false;
            if (*file_ && lockFresh(file_->descriptor())) {
                path_ = path;
                return true;
            }
        }
        errno = EEXIST;
        return false;
    }

    bool keepMode(const struct stat& old) { return keepOwnerAndMode(file_->descriptor().number(), old); }

    bool write(std::string_view bytes, Durability durability) {
        return file_->write(bytes) && (durability == Durability::Flushed ? file_->flush() : file_->check());
    }

    bool moveTo(const fs::path& path) {
        if (!renameOver(path_, path))
            return false;
        path_.clear();
        return true;
    }

  private:
    std::optional<NewFile> file_;
    fs::path path_;
};

} // namespace

Result writeFileAtomically(const fs::path& path, std::string_view bytes, Durability durability) {
    const auto target = endOfLinks(path);
    if (!target)
        return notWritten(path, "it is a link that leads nowhere");
    const fs::path folder = target->has_parent_path() ? target->parent_path() : fs::path(".");
    struct stat old {};
    const bool replaces = ::lstat(target->c_str(), &old) == 0;
    if (replaces && !S_ISREG(old.st_mode))
        return notWritten(path, "it is not a file");
    // A rename would get past the write protection of the file itself.
    if (replaces && ::faccessat(AT_FDCWD, target->c_str(), W_OK, AT_EACCESS) != 0)
        return notWritten(path, errorInWords(errno));
    Work quiet;
    if (durability == Durability::Flushed)
        clearLeftovers(folder, quiet);

    TemporaryFile temporary;
    if (!temporary.make(folder) || (replaces && !temporary.keepMode(old)) || !temporary.write(bytes, durability) ||
        !temporary.moveTo(*target))
        return notWritten(path, errorInWords(errno));
    if (durability == Durability::Flushed && !flushFolder(folder))
        return notWritten(path, errorInWords(errno));
    return {};
}

} // namespace velmarin
