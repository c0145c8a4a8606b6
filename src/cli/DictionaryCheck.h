#pragma once

#include "cli/Finding.h"
#include "files/FolderItem.h"

#include <vector>

namespace velmarin {

enum class Images { Decode, Skip };

/// Checks a dictionary against docs/dictionary-format.md. The findings are sorted by file (the members, `ind`, `txt`,
/// the page list), then by line. Nothing is written, not even a missing image index.
///
/// Unless images are skipped, each picture that is named or listed is decoded once. A picture that is bad or missing is
/// reported once, at the first line that names it.
std::vector<Finding> checkDictionary(const FolderItem& folder, Images images);

} // namespace velmarin
