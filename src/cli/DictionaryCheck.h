#pragma once

#include "files/FolderItem.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace velmarin {

/// A problem in a dictionary that its maker should fix.
struct Finding {
    std::filesystem::path file;
    /// From 1; 0 if the problem is the file or folder as a whole.
    std::uint64_t line = 0;
    std::string what;
};

enum class Images { Decode, Skip };

/// Checks a dictionary against docs/dictionary-format.md. The findings are sorted by file (the members, `ind`, `txt`,
/// the page list), then by line. Nothing is written, not even a missing image index.
///
/// Unless images are skipped, each picture that is named or listed is decoded once. A bad picture is reported at the
/// line that names it first, and so is a name without a file, with the number of other lines that name it.
std::vector<Finding> checkDictionary(const FolderItem& folder, Images images);

} // namespace velmarin
