#include "files/TreeCopy.h"

#include "files/Descriptor.h"
#include "files/ReadOnlyFile.h"
#include "files/SystemCalls.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <utility>

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
constexpr const char* kChanged = "it changed while it was copied";

/// Starts to write fresh bytes to the disk and waits for older ones.
bool pace(int descriptor, std::uint64_t from, std::uint64_t to) {
    return writeOut(descriptor, from, to, WriteOut::Start) &&
           (from < kOnItsWay || writeOut(descriptor, from - kOnItsWay, to - kOnItsWay, WriteOut::Wait));
}

/// Copies bytes between two descriptors a piece at a time, by the kernel if it can.
class BytePump {
  public:
    BytePump(int from, int to) : from_(from), to_(to) {}

    /// Whether it was reading that failed.
    bool readFailed() const { return readFailed_; }

    /// How many were copied, at most `most`: 0 at the end, nullopt with errno on failure.
    std::optional<std::size_t> copy(std::size_t most) {
        if (byKernel_) {
            const ssize_t done = copyByKernel(from_, to_, most);
            if (done > 0)
                return static_cast<std::size_t>(done);
            if (done < 0 && isDiskError(errno) && errno != EIO)
                return std::nullopt;
            // Not all file systems can do it between each other, some end it early, and which side has failed shows
            // only in the plain way.
            byKernel_ = false;
        }
        buffer_.resize(kBuffer);
        ssize_t got = 0;
        do
            got = ::read(from_, buffer_.data(), std::min(most, kBuffer));
        while (got < 0 && errno == EINTR);
        readFailed_ = got < 0;
        if (got < 0 || !writeAll(to_, std::string_view(buffer_).substr(0, static_cast<std::size_t>(got))))
            return std::nullopt;
        return static_cast<std::size_t>(got);
    }

  private:
    static constexpr std::size_t kBuffer = std::size_t{1} << 20;
    int from_;
    int to_;
    bool byKernel_ = true;
    bool readFailed_ = false;
    std::string buffer_;
};

/// Files are flushed some at a time, since flushing each at once would wait for the disk once a file.
class TreeCopier {
  public:
    TreeCopier(const TreePlan& plan, const fs::path& place, const fs::path& shownAs, Work& work, Failures& failures)
        : plan_(plan), place_(place), shownAs_(shownAs), work_(work), failures_(failures) {}

    CopyOutcome run() {
        const bool whole = std::all_of(plan_.items.begin(), plan_.items.end(),
                                       [this](const PlannedItem& item) {
                                           work_.startItem(plan_.pathOf(item));
                                           return make(item);
                                       }) &&
                           flushFiles() && finishFolders() && checkFolders();
        return whole ? CopyOutcome::Whole : outcome_;
    }

  private:
    struct OpenFile {
        Descriptor descriptor;
        const PlannedItem* item;
    };

    fs::path targetOf(const PlannedItem& item) const { return TreePlan::placeOf(item, place_); }

    bool sourceFailed(const PlannedItem& item, std::string reason) {
        failures_.push_back({FolderItem(plan_.pathOf(item)), std::move(reason)});
        outcome_ = CopyOutcome::SourceFailed;
        return false;
    }

    bool targetFailed(const PlannedItem& item) {
        failures_.push_back(
            {FolderItem(TreePlan::placeOf(item, shownAs_)), "it could not be written: " + errorInWords(errno)});
        outcome_ = CopyOutcome::TargetFailed;
        return false;
    }

    bool make(const PlannedItem& item) {
        const fs::path target = targetOf(item);
        switch (item.kind) {
        case PlannedItem::Kind::File:
            return copyFile(item);
        case PlannedItem::Kind::Link:
            return makeLink(item.leadsTo, target) || targetFailed(item);
        case PlannedItem::Kind::Folder:
            return makeFolder(target, 0700) || targetFailed(item);
        }
        return false;
    }

    bool copyFile(const PlannedItem& item) {
        const auto from = ReadOnlyFile::open(FolderItem(plan_.pathOf(item)));
        if (!from)
            return sourceFailed(item, "it cannot be read: " + errorInWords(errno));
        Descriptor to = makeFile(targetOf(item), 0600);
        if (!to)
            return targetFailed(item);
        const FileStamp before = from->stamp();
        if (changedSincePlan(item))
            return sourceFailed(item, kChanged);
        if (!copyBytes(item, from->descriptor(), to.number(), before.size))
            return false;
        struct stat arrived {};
        if (!(from->stamp() == before) || ::fstat(to.number(), &arrived) != 0 ||
            static_cast<std::uint64_t>(arrived.st_size) != before.size)
            return sourceFailed(item, kChanged);
        // The owner may always write: what comes from a read-only medium has to be replaced one day.
        if (!setAttributes(to.number(), item.permissions | 0600, item.read, item.changed))
            return targetFailed(item);
        unflushed_ += before.size;
        open_.push_back({std::move(to), &item});
        return (unflushed_ < kOnItsWay && open_.size() < kMostOpen) || flushFiles();
    }

    bool copyBytes(const PlannedItem& item, int from, int to, std::uint64_t size) {
        BytePump pump(from, to);
        std::uint64_t at = 0;
        // A file that grows meanwhile is not followed for ever.
        while (at < size) {
            const auto done = pump.copy(static_cast<std::size_t>(std::min<std::uint64_t>(kPiece, size - at)));
            if (!done && pump.readFailed())
                return sourceFailed(item, "it cannot be read: " + errorInWords(errno));
            if (!done || (*done > 0 && !pace(to, at, at + *done)))
                return targetFailed(item);
            if (*done == 0)
                return true;
            at += *done;
            work_.copied(*done);
        }
        return true;
    }

    /// A folder's time changes with every name in it.
    bool checkFolders() {
        const auto changed = std::find_if(plan_.items.begin(), plan_.items.end(), [this](const PlannedItem& item) {
            return item.kind == PlannedItem::Kind::Folder && changedSincePlan(item);
        });
        return changed == plan_.items.end() || sourceFailed(*changed, kChanged);
    }

    bool changedSincePlan(const PlannedItem& item) const {
        struct stat now {};
        return ::stat(plan_.pathOf(item).c_str(), &now) != 0 || now.st_mtim.tv_sec != item.changed.tv_sec ||
               now.st_mtim.tv_nsec != item.changed.tv_nsec ||
               (item.kind == PlannedItem::Kind::File && static_cast<std::uint64_t>(now.st_size) != item.size);
    }

    bool flushFiles() {
        for (const OpenFile& each : open_) {
            if (!flushOpen(each.descriptor.number()))
                return targetFailed(*each.item);
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
            const Descriptor folder = openFolder(targetOf(*item));
            if (!folder || !setAttributes(folder.number(), item->permissions | 0700, item->read, item->changed) ||
                !flushOpen(folder.number()))
                return targetFailed(*item);
            work_.pass();
        }
        return true;
    }

    const TreePlan& plan_;
    const fs::path& place_;
    const fs::path& shownAs_;
    Work& work_;
    Failures& failures_;
    CopyOutcome outcome_ = CopyOutcome::Whole;
    std::vector<OpenFile> open_;
    std::uint64_t unflushed_ = 0;
};

} // namespace

CopyOutcome copyTree(const TreePlan& plan, const fs::path& place, const fs::path& shownAs, Work& work,
                     Failures& failures) {
    return TreeCopier(plan, place, shownAs, work, failures).run();
}

} // namespace velmarin
