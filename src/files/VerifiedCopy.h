#pragma once

#include "files/Result.h"
#include "files/Work.h"

#include <filesystem>

namespace velmarin {

/// Copies `item` to `place` for a move between file systems: the copy is made at `hidden`, in the file system of
/// `place`, flushed, compared with `item` and then renamed. Links stay as they are; an item that no copy can hold is a
/// failure. If it fails, it returns false with the failures, and the caller has to remove what is at `hidden`.
bool copyVerified(const std::filesystem::path& item, const std::filesystem::path& place,
                  const std::filesystem::path& hidden, Work& work, Failures& failures);

} // namespace velmarin
