#pragma once

#include "cli/Finding.h"
#include "files/FolderItem.h"

#include <functional>

namespace velmarin {

enum class Images { Decode, Skip };

/// Checks a dictionary against docs/dictionary-format.md, and calls `write` with each finding, sorted by file (the
/// members, `ind`, `txt`, the page list), then by line. No file is written, not even a missing image index. Raises
/// NilObjectException if a member cannot be read, after the findings up to there.
///
/// The pictures follow in a second part of that order. Unless images are skipped, each picture that is named or listed
/// is decoded once. A picture that is bad or missing is reported once, at the first line that names it.
void checkDictionary(const FolderItem& folder, Images images, const std::function<void(const Finding&)>& write);

} // namespace velmarin
