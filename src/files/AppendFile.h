#pragma once

#include "files/Descriptor.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace velmarin {

/// A file to which lines are added. What was added survives the end of the process however it comes, and after `flush`
/// a loss of power. A last line that was cut short is ended first, so that it spoils no other. Functions return false
/// with errno.
class AppendFile {
  public:
    AppendFile() = default;
    /// Makes the file if it is missing. A link, or what is not a regular file, is refused.
    bool open(const std::filesystem::path& path);

    /// Adds `line` and a line feed. If it fails, a part of the line may be there.
    bool addLine(std::string_view line);
    bool flush();

  private:
    Descriptor descriptor_;
    bool torn_ = false; ///< the last line has no end
};

} // namespace velmarin
