#pragma once

#include "draft/Draft.h"
#include "making/KeyRule.h"
#include "reading/PageGuess.h"
#include "text/SearchWord.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace velmarin {

/// A reading of a guide word.
struct SlotReading {
    std::string text;
    std::string word; ///< its search word
    double confidence = 0;
    std::size_t rank = 0; ///< among the words of all slots
    /// Whether by the letters that are usual in the book another reading is likelier; nullopt if there is none, or if
    /// the book has too few words.
    std::optional<bool> strange = {};
};

/// The readings of the first or last word of a page, best first. The first word of page i is slot 2 i, its last word
/// slot 2 i + 1, so that the words of a book that is in order never descend from slot to slot.
struct GuideSlot {
    std::vector<SlotReading> readings = {};
    bool set = false;   ///< by a person; one reading or none
    bool entry = false; ///< read from the beginning of an entry, as the page has no guide words
};

std::vector<GuideSlot> guideSlotsOf(const std::vector<PageGuess>& guesses, const KeyRule& rule,
                                    const IndexOrder& order);

/// The slots with the words of rows that a person has set, and the ranks of all. `pages` has a row or nullptr for each
/// page.
struct RankedSlots {
    std::vector<GuideSlot> guideSlots = {};
    std::size_t ranks = 0; ///< above all ranks
};
RankedSlots rankedSlots(std::vector<GuideSlot> slots, const std::vector<const DraftPage*>& pages, const KeyRule& rule,
                        const IndexOrder& order);

} // namespace velmarin
