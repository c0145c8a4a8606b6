#pragma once

#include "files/Result.h"
#include "files/Work.h"

#include <filesystem>

namespace velmarin {

/// Copies `item` to `place`, flushed and known to be equal to it, as a move between file systems needs it: links stay
/// as they are, and what no copy can hold is a failure. It is first made at `hidden`, in the file system of `place`.
/// False with the failures; what is at `hidden` then is the caller's to remove.
bool copyVerified(const std::filesystem::path& item, const std::filesystem::path& place,
                  const std::filesystem::path& hidden, Work& work, Failures& failures);

} // namespace velmarin
