#pragma once

#include "files/Descriptor.h"
#include "files/Work.h"

#include <filesystem>

namespace velmarin {

/// A lock on a folder among runs of the program, on the folder's own descriptor: it ends with the object, and with the
/// process however that ends. Only who takes it is affected; reading and writing need no lock.
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
