#include "files/ReadOnlyFile.h"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

namespace velmarin {

std::optional<ReadOnlyFile> ReadOnlyFile::open(const FolderItem& item) {
    // Asked before opening as well, since to open a device can already set it going.
    errno = 0;
    if (!item.regularFile()) {
        errno = errno == 0 ? EINVAL : errno;
        return std::nullopt;
    }
    Descriptor opened;
    do
        opened = Descriptor(::open(item.path().c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    while (!opened && errno == EINTR);
    struct stat found {};
    if (!opened || ::fstat(opened.number(), &found) != 0 || !S_ISREG(found.st_mode))
        return std::nullopt;
    return ReadOnlyFile(std::move(opened));
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

std::size_t ReadOnlyFile::read(std::uint64_t offset, char* to, std::size_t count) const {
    std::size_t done = 0;
    while (done < count) {
        const ssize_t got = ::pread(descriptor_.number(), to + done, count - done, static_cast<off_t>(offset + done));
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            break;
        done += static_cast<std::size_t>(got);
    }
    return done;
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
    if (size > limit)
        return std::nullopt;
    std::string text;
    // One byte more than the size tells that the file has not grown; files without a size of their own are read on.
    for (std::size_t want = static_cast<std::size_t>(size) + 1;; want = text.size() + (std::size_t{1} << 16)) {
        const std::size_t had = text.size();
        text.resize(want);
        const std::size_t got = file->read(had, text.data() + had, want - had);
        text.resize(had + got);
        if (text.size() > limit)
            return std::nullopt;
        if (text.size() < want)
            return text;
    }
}

std::string readFileStart(const ReadOnlyFile& file, std::size_t most) {
    std::string text(std::min<std::uint64_t>(most, file.stamp().size), '\0');
    text.resize(file.read(0, text.data(), text.size()));
    return text;
}

} // namespace velmarin
