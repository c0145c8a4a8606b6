#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace velmarin {

/// The places of a longest run of `words` that never descends, in ascending order of place; of several, the one whose
/// words are smallest from the end. Words compare by their bytes. In time n log n: patience sorting (Fredman, "On
/// computing the length of longest increasing subsequences", 1975).
std::vector<std::size_t> longestRun(const std::vector<std::string>& words);

} // namespace velmarin
