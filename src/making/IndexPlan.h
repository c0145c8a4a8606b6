#pragma once

#include "making/KeyRule.h"
#include "text/SearchWord.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace velmarin {

/// What is known of one place in a book, in the book's order.
struct BookEntry {
    std::string headword; ///< as printed
    std::size_t page = 0; ///< the page on which the place is, from 0
    /// The place is not the entry of that headword but the first new one after it, as at the top of a page whose guide
    /// word names an entry that began on the page before.
    bool after = false;
    std::vector<std::string> errata = {}; ///< files of further pages
};

/// A line of `ind` with its page in `txt`.
struct IndexLine {
    std::string key;
    /// What is written after the key for the maker of the dictionary; the headword as printed, if it differs from the
    /// key, or a remark.
    std::string note;
    std::size_t page = 0;
    std::vector<std::string> errata = {};
};

/// An entry whose key breaks the order of the book.
struct Misplaced {
    std::size_t entry = 0;
    /// The nearest entries before and after it that keep the order.
    std::optional<std::size_t> before = {}, after = {};
};

/// The lines of a dictionary's `ind`, without the closing one.
struct IndexPlan {
    std::vector<IndexLine> lines;
    std::vector<Misplaced> misplaced;
};

/// Plans an index in which each headword, as typed, opens its page, and any other word the page on which the book would
/// have it.
///
/// The longest run of entries whose keys never descend makes the lines. All others, and headwords whose key sorts
/// elsewhere than what a reader types, get a line where the typed form sorts, and after it one that returns to the page
/// of the line before, so that no other word is led astray. Of entries with the same key the first counts, or the one
/// that is typed so; of those after it the last. The errata of all are kept.
IndexPlan planIndex(std::vector<BookEntry> entries, const KeyRule& rule, const IndexOrder& order);

} // namespace velmarin
