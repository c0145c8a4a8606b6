#pragma once

#include "files/Descriptor.h"
#include "files/FolderItem.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace velmarin {

/// The size, identity and time of change of a file: if all are equal, it is still the file that was read.
struct FileStamp {
    std::uint64_t size = 0;
    std::uint64_t inode = 0;
    std::uint64_t device = 0;
    std::int64_t changedNanoseconds = 0;
    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// A descriptor of a regular file opened for reading, without ever waiting: a FIFO, a device or a folder is an error.
class ReadOnlyFile {
  public:
    /// nullopt if the file is missing, is not a regular file or cannot be read.
    static std::optional<ReadOnlyFile> open(const FolderItem& item);

    FileStamp stamp() const;
    /// Up to `count` bytes from `offset`; 0 at the end of the file and on an error.
    std::size_t read(std::uint64_t offset, char* to, std::size_t count) const;
    int descriptor() const { return descriptor_.number(); }

  private:
    explicit ReadOnlyFile(Descriptor descriptor) : descriptor_(std::move(descriptor)) {}
    Descriptor descriptor_;
};

/// The bytes of a regular file; nullopt if it is missing, not a regular file, unreadable or longer than `limit` bytes.
std::optional<std::string> readWholeFile(const FolderItem& item, std::uint64_t limit = std::uint64_t{1} << 31);

/// Whether a file's last change lies so far back that a further one would show in its stamp. File systems count time in
/// ticks: a file that is rewritten in place within one tick, at the same length, keeps its stamp.
bool settled(const FileStamp& stamp);

/// The first bytes of a file, at most `most`.
std::string readFileStart(const ReadOnlyFile& file, std::size_t most);

} // namespace velmarin
