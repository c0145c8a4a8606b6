#pragma once

#include "draft/SlotRun.h"

#include <string>
#include <vector>

namespace velmarin {

/// What a slot is taken to say.
struct SlotDecision {
    std::string text = {};
    double trust = 0;    ///< how likely it is right, 0 to 1
    bool mended = false; ///< it is not the likeliest reading
};

/// Weighs the readings of each slot: how often readings of that confidence are right in this book, whether they fit
/// between their neighbours, and how likely a wrong one would fit too (Bayes' rule). Where none fits, the nearest word
/// that fits by a usual confusion of letters is proposed.
std::vector<SlotDecision> decideSlots(const std::vector<GuideSlot>& slots, const SlotRun& run);

} // namespace velmarin
