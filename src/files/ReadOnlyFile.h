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
    /// Reads `count` bytes from `offset`, fewer only at the end of the file. nullopt with errno if the disk fails.
    std::optional<std::size_t> read(std::uint64_t offset, char* to, std::size_t count) const;
    /// The same, but raises NilObjectException, with the name of the file, if the disk fails.
    std::size_t readOrRaise(std::uint64_t offset, char* to, std::size_t count) const;
    int descriptor() const { return descriptor_.number(); }

  private:
    ReadOnlyFile(FolderItem item, Descriptor descriptor) : item_(std::move(item)), descriptor_(std::move(descriptor)) {}
    FolderItem item_;
    Descriptor descriptor_;
};

/// The bytes of a regular file; nullopt with errno if it is missing, not a regular file, longer than `limit` bytes
/// (EFBIG), or cannot be read to its end.
std::optional<std::string> readWholeFile(const FolderItem& item, std::uint64_t limit = std::uint64_t{1} << 31);

/// The same for a file that need not be there: a missing one is empty. Raises NilObjectException, with the name of the
/// file, if it cannot be read.
std::string readFileIfAny(const FolderItem& item);

/// Whether a file's last change lies so far back that a further one would show in its stamp. File systems count time in
/// ticks: a file that is rewritten in place within one tick, at the same length, keeps its stamp.
bool settled(const FileStamp& stamp);

/// The first bytes of a file, at most `most`; nullopt with errno if the disk fails.
std::optional<std::string> readFileStart(const ReadOnlyFile& file, std::size_t most);

} // namespace velmarin
