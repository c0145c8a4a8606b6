#pragma once

#include "making/IndexPlan.h"

#include <cstddef>
#include <string>
#include <vector>

namespace velmarin {

/// What is known of the headwords of one page. All of it may be missing.
struct GuideWords {
    std::size_t page = 0; ///< from 0
    /// The first and the last headword that the head of the page names.
    std::string first = {}, last = {};
    /// Further pages of the first one.
    std::vector<std::string> errata = {};
    /// Entries between the two, in the order of the page.
    std::vector<BookEntry> between = {};
    /// The words may be wrong. If there are none, the page has entries all the same.
    bool doubtful = false;
};

/// The entries of a book by its guide words. `guides` is in the order of the alphabet; pages may be missing.
///
/// A first word that repeats the last or the only word of the page before names an entry that began there, so that the
/// page begins with what comes after it; if its last word is the same too, no entry begins on the page. A page whose
/// first word is missing or doubtful begins after the last word of the page before.
std::vector<BookEntry> entriesOf(const std::vector<GuideWords>& guides, const KeyRule& rule, const IndexOrder& order);

} // namespace velmarin
