#pragma once

#include "draft/DraftOrder.h"
#include "workshop/WorkshopBook.h"

#include <cstddef>
#include <string>
#include <vector>

namespace velmarin {

/// What else a guide word of a page may be.
struct OtherReading {
    GuidePlace place = GuidePlace::First;
    std::string text;
    friend bool operator==(const OtherReading&, const OtherReading&) = default;
};

/// As many as there are digit keys.
inline constexpr std::size_t kMostOtherReadings = 9;

/// The readings of a page's guide words without those that its row has: first those of the first word, then those of
/// the last one, each list best first. They share kMostOtherReadings.
std::vector<OtherReading> otherReadings(const PageGuess& guess, const DraftPage& row);

/// The guide word of a row that is likelier to be wrong: an empty one, one that breaks the order, or the one that was
/// read with less confidence.
GuidePlace likelierWrong(const Draft& draft, std::size_t row, const WorkshopBook& book);

} // namespace velmarin
