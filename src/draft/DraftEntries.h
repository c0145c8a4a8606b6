#pragma once

#include "draft/Draft.h"
#include "making/IndexPlan.h"

#include <vector>

namespace velmarin {

/// The entries of a book (making/GuideWords.h) by a draft, whose rows are the pages. Words of doubtful rows that break
/// the order do not count. Pages that are bound at a wrong place are put where their words belong, and a page that was
/// scanned twice counts once.
std::vector<BookEntry> entriesOf(const Draft& draft, const KeyRule& rule, const IndexOrder& order);

} // namespace velmarin
