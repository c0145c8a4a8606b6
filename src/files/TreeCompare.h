#pragma once

#include "files/TreePlan.h"

namespace velmarin {

/// Whether the planned items and those at `other` have the same names, kinds and contents, byte for byte; links are
/// compared by their targets. Cached pages of `other` are dropped first, so that it is read from the disk.
bool sameContents(const TreePlan& plan, const std::filesystem::path& other, Work& work);

} // namespace velmarin
