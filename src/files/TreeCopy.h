#pragma once

#include "files/TreePlan.h"

#include <filesystem>

namespace velmarin {

enum class CopyOutcome {
    Whole,
    SourceFailed, ///< something could not be read, or changed meanwhile
    TargetFailed, ///< something could not be written
};

/// Copies what was planned to `place`, which must be free, and flushes it. The owner may write to all of the copy.
/// Where it is not whole, the one failure that ended it is added to `failures`, with an item of the source or of the
/// target, and what there is of the copy is the caller's to remove. Messages call it `shownAs`, the name it is to get.
CopyOutcome copyTree(const TreePlan& plan, const std::filesystem::path& place, const std::filesystem::path& shownAs,
                     Work& work, Failures& failures);

} // namespace velmarin
