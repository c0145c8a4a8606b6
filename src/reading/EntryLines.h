#pragma once

#include "reading/PageLayout.h"

#include <vector>

namespace velmarin {

/// A line that begins an entry.
struct EntryLine {
    PageBox box;       ///< on the straight page
    bool bold = false; ///< its first word is
};

/// The lines of a column that begin an entry, from the top: those that stand out from the lines below them, or are
/// indented where all others are not; the kind whose first words are heavier. If no line is indented, those with heavy
/// first words.
std::vector<EntryLine> entryLinesOf(const StraightPage& page, const TextColumn& column);

} // namespace velmarin
