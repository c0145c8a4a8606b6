#pragma once

#include "files/Descriptor.h"
#include "files/Work.h"

#include <filesystem>

namespace velmarin {

/// A lock on a folder that runs of the program take before they change it. The system holds it on an open descriptor of
/// the folder, so that it ends with the object or with the process, even after a crash. It is advisory: a process that
/// takes no lock can read and write.
class FolderLock {
  public:
    enum class Kind {
        Shared, ///< beside others of this kind
        Alone,
    };

    /// Waits until the lock is free, and reports to `work` what it waits for. A folder that cannot be opened, or whose
    /// file system has no locks, is not locked.
    FolderLock(const std::filesystem::path& folder, Kind kind, Work& work);

  private:
    Descriptor folder_;
};

} // namespace velmarin
