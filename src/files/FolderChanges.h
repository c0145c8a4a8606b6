#pragma once

#include "files/Descriptor.h"
#include "files/Work.h"

#include <filesystem>
#include <optional>

#include <sys/stat.h>

namespace velmarin {

/// Flushes an open file or folder to the disk. False with errno on failure; file systems that cannot do it pass.
bool flushOpen(int descriptor);

/// Flushes the entries of a folder, likewise.
bool flushFolder(const std::filesystem::path& folder);

/// False with errno where it did not happen: EEXIST where the new name is taken, so that nothing is ever replaced.
bool renameToFreeName(const std::filesystem::path& from, const std::filesystem::path& to);

/// Sets what can be set of permissions and times: file systems that keep none pass. False with errno where the disk is
/// full or failing.
bool setAttributes(int descriptor, mode_t permissions, const timespec& read, const timespec& changed);

/// Whether an error tells of the disk rather than of what was asked of it: full, over the quota, failing.
bool isDiskError(int error);

/// Gives each of two items of one file system the other's name, in one step. False with errno; EINVAL where the file
/// system cannot.
bool exchangeNames(const std::filesystem::path& one, const std::filesystem::path& other);

/// Removes a file, link or folder with all it holds, write-protected folders included. False with errno of the first
/// failure, after which it goes on with the rest.
bool removeTree(const std::filesystem::path& item, Work& work);

/// Makes a folder that was not there. False with errno.
bool makeFolder(const std::filesystem::path& folder);

/// Moves an item, under its name, into a new hidden folder beside it, and gives that folder with a lock on it that
/// keeps clearLeftovers off; nothing with errno where it stays in its place. A run that is killed before something new
/// has the name is made up for by clearLeftovers, which gives it back.
struct SetAside {
    std::filesystem::path folder;
    Descriptor lock;
    /// Gives the item its place back. False with errno.
    bool putBack(const std::filesystem::path& item) const;
};
std::optional<SetAside> setAside(const std::filesystem::path& item);

/// Removes what runs that were killed have left in a folder: hidden copies that were not whole yet, and what had been
/// replaced and was about to be removed (files/TemporaryName.h). What was set aside and has no successor yet gets its
/// name back. What a running process holds locked stays.
void clearLeftovers(const std::filesystem::path& folder, Work& work);
/// Whether there is any such leftover.
bool holdsLeftovers(const std::filesystem::path& folder);

} // namespace velmarin
