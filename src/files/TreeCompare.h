#pragma once

#include "files/TreePlan.h"

namespace velmarin {

/// Whether what was planned and what is at `other` (its links as they are) are the same, byte for byte: names, kinds
/// and contents. `other` is read from the disk, where the system drops what it has cached of it.
bool sameContents(const TreePlan& plan, const std::filesystem::path& other, Work& work);

} // namespace velmarin
