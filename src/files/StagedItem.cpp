#include "files/StagedItem.h"

#include "files/AtomicFile.h"
#include "files/FolderChanges.h"
#include "files/TemporaryName.h"
#include "files/TextFile.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmarin {

namespace fs = std::filesystem;

namespace {

/// Small enough that the interface stays alive between two of them on a slow disk.
constexpr std::size_t kPiece = std::size_t{4} << 20;
/// How much may be on its way to the disk before it is waited for: enough to keep the disk busy, little enough that no
/// flush takes long.
constexpr std::uint64_t kOnItsWay = std::uint64_t{64} << 20;
constexpr std::size_t kMostOpen = 200;

bool writeAll(int to, const char* bytes, std::size_t count) {
    while (count > 0) {
        const ssize_t done = ::write(to, bytes, count);
        if (done < 0 && errno == EINTR)
            continue;
        if (done <= 0) {
            errno = done == 0 ? ENOSPC : errno;
            return false;
        }
        bytes += done;
        count -= static_cast<std::size_t>(done);
    }
    return true;
}

/// Starts the way of fresh bytes to the disk and waits for older ones. Only what it says of the disk itself counts:
/// some file systems cannot do it.
bool pace(int descriptor, std::uint64_t from, std::uint64_t to) {
    const auto range = [&](std::uint64_t at, std::uint64_t end, unsigned flags) {
        return ::sync_file_range(descriptor, static_cast<off64_t>(at), static_cast<off64_t>(end - at), flags) == 0 ||
               !isDiskError(errno);
    };
    if (!range(from, to, SYNC_FILE_RANGE_WRITE))
        return false;
    if (from < kOnItsWay)
        return true;
    constexpr unsigned kArrived = SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
    return range(from - kOnItsWay, to - kOnItsWay, kArrived);
}

/// Copies bytes between two descriptors a piece at a time, by the kernel where it can.
class BytePump {
  public:
    BytePump(int from, int to) : from_(from), to_(to) {}

    /// How many were copied, at most `most`: 0 at the end, nothing with errno on failure.
    std::optional<std::size_t> copy(std::size_t most) {
        while (byKernel_) {
            const ssize_t done = ::copy_file_range(from_, nullptr, to_, nullptr, most, 0);
            if (done > 0)
                return static_cast<std::size_t>(done);
            if (done < 0 && errno == EINTR)
                continue;
            if (done < 0 && isDiskError(errno))
                return std::nullopt;
            // Not all file systems can do it between each other, and some end it early.
            byKernel_ = false;
        }
        buffer_.resize(kBuffer);
        ssize_t got = 0;
        do
            got = ::read(from_, buffer_.data(), std::min(most, kBuffer));
        while (got < 0 && errno == EINTR);
        if (got < 0 || !writeAll(to_, buffer_.data(), static_cast<std::size_t>(got)))
            return std::nullopt;
        return static_cast<std::size_t>(got);
    }

  private:
    static constexpr std::size_t kBuffer = std::size_t{1} << 20;
    int from_;
    int to_;
    bool byKernel_ = true;
    std::string buffer_;
};

} // namespace

/// Fills a hidden item. Files are flushed some at a time, since flushing each at once would wait for the disk once a
/// file.
class StagedItem::Copier {
  public:
    Copier(const TreePlan& plan, StagedItem& staged, Work& work, std::vector<CopyFailure>& failures)
        : plan_(plan), staged_(staged), work_(work), failures_(failures) {}

    bool run() {
        for (const PlannedItem& item : plan_.items) {
            work_.startItem(plan_.pathOf(item));
            if (!make(item))
                return false;
        }
        return flushFiles() && finishFolders();
    }

  private:
    struct OpenFile {
        Descriptor descriptor;
        const PlannedItem* item;
    };

    fs::path targetOf(const PlannedItem& item) const { return TreePlan::placeOf(item, staged_.path_); }

    bool fail(const PlannedItem& item, std::string reason) {
        failures_.push_back({FolderItem(plan_.pathOf(item)), std::move(reason)});
        return false;
    }

    bool make(const PlannedItem& item) {
        if (item.kind == PlannedItem::Kind::File)
            return makeFile(item);
        const fs::path target = targetOf(item);
        const int answer = item.kind == PlannedItem::Kind::Link ? ::symlink(item.leadsTo.c_str(), target.c_str())
                                                                : ::mkdir(target.c_str(), 0700);
        if (answer != 0)
            return fail(item, errorInWords(errno));
        if (item.name.empty() && item.kind == PlannedItem::Kind::Folder)
            lock(Descriptor(::open(target.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)));
        return true;
    }

    bool makeFile(const PlannedItem& item) {
        const auto from = ReadOnlyFile::open(FolderItem(plan_.pathOf(item)));
        if (!from)
            return fail(item, "it cannot be read");
        Descriptor to(::open(targetOf(item).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
        if (!to)
            return fail(item, errorInWords(errno));
        if (item.name.empty())
            lock(Descriptor(::fcntl(to.number(), F_DUPFD_CLOEXEC, 0)));
        const FileStamp before = from->stamp();
        if (!copyBytes(from->descriptor(), to.number(), before.size))
            return fail(item, errorInWords(errno));
        struct stat arrived {};
        if (!(from->stamp() == before) || ::fstat(to.number(), &arrived) != 0 ||
            static_cast<std::uint64_t>(arrived.st_size) != before.size)
            return fail(item, "it changed while it was being copied");
        // The owner may always write: what comes from a read-only medium has to be replaced one day.
        if (!setAttributes(to.number(), item.permissions | 0600, item.read, item.changed))
            return fail(item, errorInWords(errno));
        unflushed_ += before.size;
        open_.push_back({std::move(to), &item});
        return (unflushed_ < kOnItsWay && open_.size() < kMostOpen) || flushFiles();
    }

    bool copyBytes(int from, int to, std::uint64_t size) {
        BytePump pump(from, to);
        std::uint64_t at = 0;
        // A file that grows meanwhile is not followed for ever.
        while (at < size) {
            const auto done = pump.copy(static_cast<std::size_t>(std::min<std::uint64_t>(kPiece, size - at)));
            if (!done || (*done > 0 && !pace(to, at, at + *done)))
                return false;
            if (*done == 0)
                return true;
            at += *done;
            work_.copied(*done);
        }
        return true;
    }

    bool flushFiles() {
        for (const OpenFile& each : open_) {
            if (!flushOpen(each.descriptor.number()))
                return fail(*each.item, errorInWords(errno));
            work_.pass();
        }
        open_.clear();
        unflushed_ = 0;
        return true;
    }

    /// From the innermost: a folder's time changes with everything that is made in it.
    bool finishFolders() {
        for (auto item = plan_.items.rbegin(); item != plan_.items.rend(); ++item) {
            if (item->kind != PlannedItem::Kind::Folder)
                continue;
            const Descriptor folder(::open(targetOf(*item).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
            if (!folder || !setAttributes(folder.number(), item->permissions | 0700, item->read, item->changed) ||
                !flushOpen(folder.number()))
                return fail(*item, errorInWords(errno));
            work_.pass();
        }
        return true;
    }

    void lock(Descriptor descriptor) {
        if (descriptor)
            ::flock(descriptor.number(), LOCK_EX | LOCK_NB);
        staged_.lock_ = std::move(descriptor);
    }

    const TreePlan& plan_;
    StagedItem& staged_;
    Work& work_;
    std::vector<CopyFailure>& failures_;
    std::vector<OpenFile> open_;
    std::uint64_t unflushed_ = 0;
};

std::optional<StagedItem> StagedItem::copy(const TreePlan& plan, const fs::path& folder, Work& work,
                                           std::vector<CopyFailure>& failures) {
    if (!plan.whole())
        return std::nullopt;
    fs::path hidden;
    do
        hidden = folder / newTemporaryName();
    while (FolderItem(hidden).occupied());
    StagedItem staged(hidden);
    if (!Copier(plan, staged, work, failures).run())
        return std::nullopt;
    return staged;
}

StagedItem::StagedItem(StagedItem&& other) noexcept
    : path_(std::exchange(other.path_, {})), lock_(std::move(other.lock_)) {}

StagedItem::~StagedItem() {
    if (path_.empty())
        return;
    const int error = errno;
    Work quiet; // no callback: this may run because one has thrown
    drop(quiet);
    errno = error;
}

bool StagedItem::moveTo(const fs::path& target) {
    if (!renameToFreeName(path_, target))
        return false;
    path_.clear();
    return true;
}

bool StagedItem::moveToEvenOverEmptyFolder(const fs::path& target) {
    if (::rename(path_.c_str(), target.c_str()) != 0)
        return false;
    path_.clear();
    return true;
}

bool StagedItem::moveInPlaceOf(const fs::path& there, const fs::path& target) {
    if (there == target) {
        if (exchangeNames(path_, target))
            return true;
        if (errno != EINVAL)
            return false;
    }
    auto old = setAside(there);
    if (!old)
        return false;
    if (!renameToFreeName(path_, target)) {
        const int error = errno;
        old->putBack(there);
        errno = error;
        return false;
    }
    path_ = old->folder;
    lock_ = std::move(old->lock);
    return true;
}

bool StagedItem::drop(Work& work) {
    return path_.empty() || removeTree(std::exchange(path_, {}), work);
}

} // namespace velmarin
