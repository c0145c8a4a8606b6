#pragma once

#include "reading/PageColumns.h"
#include "reading/PageReading.h"
#include "reading/StraightPage.h"

#include <vector>

namespace velmarin {

/// Where things are on a straight page, in pixels of its `ink`.
struct PageLayout {
    PageLook look = PageLook::Text;
    std::vector<TextColumn> columns = {}; ///< from left to right, without the lines of head and foot
    double linePitch = 0;                 ///< from one line to the next; 0 if unknown
    std::vector<PageBox> headRows = {};   ///< the lines above the columns, from the top; at most three
    std::vector<PageBox> footRows = {};   ///< the lines below them, from the top
};

/// Finds columns by the white between them, and head and foot by a rule, a wide gap, or by how little of the page's
/// width they fill.
PageLayout layoutOf(const StraightPage& page);

/// The part of the page to show when its head is to be read: the head, or the first lines.
PageBox topOf(const StraightPage& page, const PageLayout& layout);

} // namespace velmarin
