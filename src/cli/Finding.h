#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace velmarin {

/// A problem in a dictionary that its maker should fix.
struct Finding {
    std::filesystem::path file;
    /// From 1; 0 if the problem is the file or folder as a whole.
    std::uint64_t line = 0;
    std::string problem;
};

} // namespace velmarin
