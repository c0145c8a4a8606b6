#pragma once

#include "files/TreePlan.h"

#include <filesystem>

namespace velmarin {

enum class CopyOutcome {
    Whole,
    SourceFailed, ///< something could not be read, or changed meanwhile
    TargetFailed, ///< something could not be written
};

/// Copies what was planned to `place`, which must be free, and flushes it. The owner may write to all folders and files
/// of the copy. If it does not become whole, the failure that ended it is added to `failures`, and the caller has to
/// remove what was written. Messages name items of the copy by their places below `shownAs`, the path it is to get.
CopyOutcome copyTree(const TreePlan& plan, const std::filesystem::path& place, const std::filesystem::path& shownAs,
                     Work& work, Failures& failures);

} // namespace velmarin
