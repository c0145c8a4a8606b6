#pragma once

#include "draft/GuideSlots.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace velmarin {

/// Between which words the word of a slot must be; empty where nothing is known.
struct SlotBounds {
    std::string_view before = {}, after = {};

    bool admit(std::string_view word) const { return before <= word && (after.empty() || word <= after); }
};

/// The readings of a book that keep the order: the heaviest run through its slots.
struct SlotRun {
    std::vector<std::optional<std::size_t>> taken = {}; ///< for each slot the reading, if it is in the run
    std::size_t begin = 0, end = 0; ///< the pages of the alphabet; what is outside is front matter or appendix
    /// For each page whether it is bound at another place than the alphabet has it.
    std::vector<bool> moved = {};
};

SlotRun heaviestRun(const RankedSlots& ranked);

/// The bounds of each slot: the words of the nearest slots that are in the run and that `trusted` has, its own left
/// out; of a page that is moved, those of the place where it belongs.
std::vector<SlotBounds> boundsOf(const SlotRun& run, const std::vector<GuideSlot>& slots,
                                 const std::vector<bool>& trusted);

} // namespace velmarin
