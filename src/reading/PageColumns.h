#pragma once

#include "reading/StraightPage.h"

#include <vector>

namespace velmarin {

/// What is printed in one row of a column, from `top` up to `bottom`.
struct LineBand {
    int top = 0, bottom = 0;
    int left = 0, right = 0; ///< of its ink
    int covered = 0;         ///< the widths of its letters together

    int height() const { return bottom - top; }
    double middle() const { return (top + bottom) / 2.0; }
};

/// A column of text and its lines, from the top.
struct TextColumn {
    int left = 0, right = 0; ///< the columns of a page meet: their borders are in the middle of the white between them
    std::vector<LineBand> lines = {};
};

/// The columns of a straight page, from left to right, by the white between them. `letters` are the boxes of what has
/// the size of letters. Strips of text at the sides, as of the facing page, are left out.
std::vector<TextColumn> columnsOf(const StraightPage& page, const std::vector<PageBox>& letters);

} // namespace velmarin
