#pragma once

#include "files/Descriptor.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include <sys/stat.h>
#include <sys/types.h>

namespace velmarin {

// The system calls that read and change files and folders, each with the retries and fallbacks that file systems need.
// A function that returns false or nullopt has set errno.

/// What the system says of an error number.
std::string errorInWords(int error);

/// Whether an error comes from the disk rather than from the request: full, over the quota, failing, read-only.
bool isDiskError(int error);

/// Reads `count` bytes from `offset` of an open file, fewer only at its end. The position of the file does not change.
std::optional<std::size_t> readAt(int descriptor, std::uint64_t offset, void* to, std::size_t count);

/// Writes all bytes. A device that takes none counts as full.
bool writeAll(int descriptor, std::string_view bytes);

/// Flushes an open file or folder to the disk. True as well if the file system cannot flush.
bool flushOpen(int descriptor);

/// Flushes the entries of a folder, likewise. True as well for a folder without read permission: it cannot be opened.
bool flushFolder(const std::filesystem::path& folder);

/// Sets permissions and times as far as the file system keeps them. False only for a disk error.
bool setAttributes(int descriptor, mode_t permissions, const timespec& read, const timespec& changed);

/// Makes a folder that was not there.
bool makeFolder(const std::filesystem::path& folder, mode_t permissions = 0777);

/// Makes a file that was not there, open for writing. False if that fails.
Descriptor makeFile(const std::filesystem::path& file, mode_t permissions);

/// Makes a symbolic link to `target`, which need not exist.
bool makeLink(const std::string& target, const std::filesystem::path& link);

/// Removes a file or a link.
bool removeFile(const std::filesystem::path& file);

bool removeEmptyFolder(const std::filesystem::path& folder);

/// Gives the owner of a folder all rights to it.
bool openToOwner(const std::filesystem::path& folder);

/// Copies up to `most` bytes between two open files inside the kernel. Returns how many: 0 at the end, -1 with errno.
ssize_t copyByKernel(int from, int to, std::size_t most);

/// Starts to write fresh bytes of a file to the disk, up to `end`, or waits until they are there. False only for a disk
/// error: some file systems cannot do it.
enum class WriteOut { Start, Wait };
bool writeOut(int descriptor, std::uint64_t from, std::uint64_t end, WriteOut how);

/// Closes a duplicate of a descriptor: network file systems may report a failed write only then.
bool closeDuplicate(int descriptor);

/// Gives an open file the owner and permissions that `old` has. What the system does not allow is dropped.
bool keepOwnerAndMode(int descriptor, const struct stat& old);

/// Makes a symbolic link to `target`, or makes an existing link lead there, in one step. Anything else is not replaced.
bool makeLinkTo(const std::filesystem::path& target, const std::filesystem::path& link);

/// A folder opened for flushing and locking; false if it cannot be opened.
Descriptor openFolder(const std::filesystem::path& folder);

/// Locks an open file or folder that nobody else has locked; false, at once, if somebody has.
bool lockAlone(const Descriptor& opened);

/// Locks a hidden item that was made a moment ago. False if another process has taken it for a leftover and removes it.
/// True without a lock if the file system has none.
bool lockFresh(const Descriptor& made);

/// Renames; a file replaces a file, and a folder an empty folder.
bool renameOver(const std::filesystem::path& from, const std::filesystem::path& to);

/// Renames; false with EEXIST if the new name is taken, so that nothing is replaced.
bool renameToFreeName(const std::filesystem::path& from, const std::filesystem::path& to);

/// The same, also for a write-protected folder. Moving it into another folder changes its "..", for which the system
/// demands write permission; it gets it for the moment of the call.
bool renameItem(const std::filesystem::path& from, const std::filesystem::path& to);

/// Gives each of two items of one file system the other's name, in one step. EINVAL if the file system cannot.
bool exchangeNames(const std::filesystem::path& one, const std::filesystem::path& other);

/// Lets the owner write to a folder that is write-protected, while the object lives. If the process is killed
/// meanwhile, the owner keeps the right, as in every copy that copyTree makes; nobody else gets any.
class WriteAccess {
  public:
    explicit WriteAccess(const std::filesystem::path& folder);
    ~WriteAccess();
    WriteAccess(const WriteAccess&) = delete;
    WriteAccess& operator=(const WriteAccess&) = delete;

    /// Whether the folder was write-protected and is not any more.
    bool changed() const { return static_cast<bool>(folder_); }

  private:
    Descriptor folder_;
    mode_t permissions_ = 0;
};

} // namespace velmarin
