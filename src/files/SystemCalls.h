#pragma once

#include "files/Descriptor.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include <sys/stat.h>

namespace velmarin {

// The system calls by which files and folders change, each with the retries and fallbacks that file systems need. A
// function that returns false has set errno.

/// What the system says of an error number.
std::string errorInWords(int error);

/// Whether an error comes from the disk rather than from the request: full, over the quota, failing, read-only.
bool isDiskError(int error);

/// Writes all bytes. A device that takes none counts as full.
bool writeAll(int descriptor, std::string_view bytes);

/// Flushes an open file or folder to the disk. File systems that cannot do it pass.
bool flushOpen(int descriptor);

/// Flushes the entries of a folder, likewise. A folder that may be written but not read passes.
bool flushFolder(const std::filesystem::path& folder);

/// Sets what can be set of permissions and times: file systems that keep none pass. False only for a disk error.
bool setAttributes(int descriptor, mode_t permissions, const timespec& read, const timespec& changed);

/// Makes a folder that was not there.
bool makeFolder(const std::filesystem::path& folder);

/// Makes a symbolic link to `target`, or makes an existing link lead there, in one step. Anything else is not replaced.
bool makeLinkTo(const std::filesystem::path& target, const std::filesystem::path& link);

/// A folder opened for flushing and locking; false if it cannot be opened.
Descriptor openFolder(const std::filesystem::path& folder);

/// Locks an open file or folder that nobody else has locked; false, at once, if somebody has.
bool lockAlone(const Descriptor& opened);

/// Locks a hidden item that was made a moment ago. False if another process has taken it for a leftover: the item is
/// then gone or about to go. File systems without locks pass.
bool lockFresh(const Descriptor& made);

/// Renames; false with EEXIST if the new name is taken, so that nothing is replaced.
bool renameToFreeName(const std::filesystem::path& from, const std::filesystem::path& to);

/// renameToFreeName, also for a folder that its owner has write-protected: the system wants to write to a folder that
/// gets another parent. Its permissions stay.
bool renameItem(const std::filesystem::path& from, const std::filesystem::path& to);

/// Gives each of two items of one file system the other's name, in one step. EINVAL if the file system cannot.
bool exchangeNames(const std::filesystem::path& one, const std::filesystem::path& other);

/// Lets the owner write to a folder that is write-protected, while the object lives.
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
