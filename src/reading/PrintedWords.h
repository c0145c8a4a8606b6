#pragma once

#include "reading/PageColumns.h"

#include <vector>

namespace velmarin {

/// A word as it is printed.
struct PrintedWord {
    PageBox box;       ///< on the straight page
    double stroke = 0; ///< how thick its strokes are, in x-heights; 0 if it is too small to tell
};

/// The words within the first `length` x-heights of a line, parted by white. The last one may be cut.
std::vector<PrintedWord> printedWordsOf(const Picture& picture, const StraightPage& page, const LineBand& line,
                                        double length);

/// The usual thickness of strokes in the middle of the lines of a column, where no headwords are; 0 if unknown.
double usualStroke(const Picture& picture, const StraightPage& page, const TextColumn& column);

} // namespace velmarin
