#pragma once

#include "reading/StraightPage.h"

#include <vector>

namespace velmarin {

/// Words that are printed close to each other, cut out for reading.
struct WordGroup {
    PageBox box;              ///< on the straight page
    PixPtr grey;              ///< the group alone on white paper, its base line horizontal
    double capitalHeight = 0; ///< in pixels of `grey`
};

/// Whether letters that begin beyond the right end of a row belong to it.
enum class RowEnd { Open, Sharp };

/// The groups of a row of text, from left to right. They are parted by wide white. Letters that are spaced out are
/// moved together.
std::vector<WordGroup> wordGroupsOf(const Picture& picture, const StraightPage& page, const PageBox& row,
                                    RowEnd end = RowEnd::Open);

} // namespace velmarin
