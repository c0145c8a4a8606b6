#pragma once

#include "support/TempFolder.h"

#include <filesystem>
#include <vector>

namespace velmarin::test {

/// Two file systems of different kinds, both in memory, so that flushing takes no time. They are mounted in a mount
/// namespace of this process. If the kernel forbids that, they are the temporary folder and /dev/shm.
class SweepFileSystems {
  public:
    SweepFileSystems();
    ~SweepFileSystems();
    SweepFileSystems(const SweepFileSystems&) = delete;
    SweepFileSystems& operator=(const SweepFileSystems&) = delete;

    const std::filesystem::path& nearFolder() const { return near_; }
    /// On the other file system; empty if there is only one.
    const std::filesystem::path& farFolder() const { return far_; }

  private:
    void useSharedMemoryFolder();

    TempFolder folder_;
    std::filesystem::path near_;
    std::filesystem::path far_;
    std::vector<std::filesystem::path> mounted_;
};

} // namespace velmarin::test
