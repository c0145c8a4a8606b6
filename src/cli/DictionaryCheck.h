#pragma once

#include "files/FolderItem.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace velmarin {

/// Something in a dictionary that its maker should put right.
struct Finding {
    std::filesystem::path file;
    /// From 1; 0 where it concerns the file or folder as a whole.
    std::uint64_t line = 0;
    std::string what;
};

enum class Images { Decoded, LeftAlone };

/// What is wrong with a dictionary, against docs/dictionary-format.md: file by file (the members, `ind`, `txt`, the
/// page list), each in the order of its lines. Reads only; an image index that is missing is not made.
///
/// A picture that is named or listed is decoded once, unless images are left alone, and told of where it is first
/// named. So is a name without a file, with the number of further lines that name it.
std::vector<Finding> checkDictionary(const FolderItem& folder, Images images);

} // namespace velmarin
