#pragma once

#include "files/Descriptor.h"

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace velmarin {

/// A file that was not there, written a piece at a time. Its functions return false with errno once anything has
/// failed.
class NewFile {
  public:
    explicit NewFile(const std::filesystem::path& path);

    bool write(std::string_view bytes);
    /// Checks that every byte has arrived and flushes the file to the disk.
    bool flush();
    /// The same without waiting for the disk. Network file systems may report a failed write only when a descriptor is
    /// closed; this closes a duplicate, so that a lock on the file stays.
    bool check();

    const Descriptor& descriptor() const { return descriptor_; }
    explicit operator bool() const { return error_ == 0; }

  private:
    bool noteError(bool done);
    bool hasAllBytes();

    Descriptor descriptor_;
    std::uint64_t size_ = 0;
    int error_ = 0;
};

} // namespace velmarin
