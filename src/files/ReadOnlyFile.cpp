#include "files/ReadOnlyFile.h"

#include "files/SystemCalls.h"
#include "text/NilObjectException.h"

#include <cerrno>
#include <ctime>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

namespace velmarin {

namespace {

/// With the reason in errno.
NilObjectException notRead(const FolderItem& item) {
    return NilObjectException("\"" + item.path().native() + "\" could not be read: " + errorInWords(errno));
}

} // namespace

std::optional<ReadOnlyFile> ReadOnlyFile::open(const FolderItem& item) {
    // Asked before opening as well, since to open a device can already set it going.
    errno = 0;
    if (!item.regularFile()) {
        errno = item.Directory() ? EISDIR : errno == 0 ? EINVAL : errno;
        return std::nullopt;
    }
    Descriptor opened;
    do
        opened = Descriptor(::open(item.path().c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    while (!opened && errno == EINTR);
    struct stat found {};
    if (!opened || ::fstat(opened.number(), &found) != 0)
        return std::nullopt;
    if (!S_ISREG(found.st_mode)) {
        errno = EINVAL;
        return std::nullopt;
    }
    return ReadOnlyFile(item, std::move(opened));
}

FileStamp ReadOnlyFile::stamp() const {
    struct stat found {};
    if (::fstat(descriptor_.number(), &found) != 0)
        return {};
    return {.size = static_cast<std::uint64_t>(found.st_size),
            .inode = found.st_ino,
            .device = found.st_dev,
            .changedNanoseconds = std::int64_t{found.st_ctim.tv_sec} * 1'000'000'000 + found.st_ctim.tv_nsec};
}

std::optional<std::size_t> ReadOnlyFile::read(std::uint64_t offset, char* to, std::size_t count) const {
    return readAt(descriptor_.number(), offset, to, count);
}

std::size_t ReadOnlyFile::readOrRaise(std::uint64_t offset, char* to, std::size_t count) const {
    const auto got = read(offset, to, count);
    if (!got)
        throw notRead(item_);
    return *got;
}

bool settled(const FileStamp& stamp) {
    constexpr std::int64_t kCoarsestClock = 2'000'000'000; // some file systems keep times to two seconds
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return std::int64_t{now.tv_sec} * 1'000'000'000 + now.tv_nsec - stamp.changedNanoseconds > kCoarsestClock;
}

std::optional<std::string> readWholeFile(const FolderItem& item, std::uint64_t limit) {
    const auto file = ReadOnlyFile::open(item);
    if (!file)
        return std::nullopt;
    const std::uint64_t size = file->stamp().size;
    std::string text;
    // One byte more than the size tells that the file has not grown; files without a size of their own are read on.
    for (std::size_t want = static_cast<std::size_t>(size) + 1;; want = text.size() + (std::size_t{1} << 16)) {
        const std::size_t had = text.size();
        if (size > limit || had > limit) {
            errno = EFBIG;
            return std::nullopt;
        }
        text.resize(want);
        const auto got = file->read(had, text.data() + had, want - had);
        if (!got)
            return std::nullopt;
        text.resize(had + *got);
        if (text.size() < want && text.size() <= limit)
            return text;
    }
}

std::string readFileIfAny(const FolderItem& item) {
    auto text = readWholeFile(item);
    if (!text && errno != ENOENT)
        throw notRead(item);
    return std::move(text).value_or("");
}

std::optional<std::string> readFileStart(const ReadOnlyFile& file, std::size_t most) {
    std::string text(most, '\0');
    const auto got = file.read(0, text.data(), text.size());
    if (!got)
        return std::nullopt;
    text.resize(*got);
    return text;
}

} // namespace velmarin
