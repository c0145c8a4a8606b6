#pragma once

#include "reading/PageColumns.h"

#include <vector>

namespace velmarin {

/// A line that begins an entry.
struct EntryLine {
    PageBox box;     ///< on the straight page
    int boldEnd = 0; ///< the right edge of the bold words at its beginning; 0 if there are none
};

/// The lines of a column that begin an entry, from the top. If some lines are indented, either these or the others do:
/// the kind whose first words are bold, or else the kind that follows short lines more often, since only the last line
/// of an entry is short. If hardly any line is indented, those with bold first words do.
std::vector<EntryLine> entryLinesOf(const Picture& picture, const StraightPage& page, const TextColumn& column);

} // namespace velmarin
