#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace velmarin {

/// A possible word of a place in a sequence.
struct RankedWord {
    std::size_t rank = 0; ///< its place among all words in order; equal words have the same
    double weight = 0;    ///< what taking it is worth; above 0
};

/// For each place the word to take, if any, so that the ranks never descend and the sum of the weights is greatest: a
/// heaviest increasing subsequence with several words to choose from at each place. In time n log n with a tree of
/// prefix maxima (Fenwick, "A new data structure for cumulative frequency tables", 1994).
/// @param ranks above all ranks
std::vector<std::optional<std::size_t>> heaviestChoice(const std::vector<std::vector<RankedWord>>& places,
                                                       std::size_t ranks);

} // namespace velmarin
