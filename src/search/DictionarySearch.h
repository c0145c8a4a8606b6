#pragma once

#include "store/DictionaryItem.h"
#include "store/TxtLine.h"

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace velmarin {

/// How a search of one dictionary ended.
enum class SearchOutcome {
    Hit,     ///< The line of the entry before the first greater one was read.
    Before,  ///< The word sorts before the first entry, and has no line.
    After,   ///< No entry is greater than the word. Nothing is shown and nothing changes.
    Skipped, ///< The dictionary was not searched, because it or the one in front is independent.
};

struct SearchResult {
    SearchOutcome outcome = SearchOutcome::After;
    /// The number of entries before the first one that sorts after the word: the hit's line, counted from 1.
    std::size_t place = 0;
    TxtLine line;
};

/// A search from a tab applies the Spanish or IJUV order of the dictionary to the query; one in list mode does not.
enum class SearchForm { Tab, List };

/// Finds `query` (as typed) in one dictionary, independent or not. A `txt` that is missing or cannot be read is
/// reported, and counts as a line without markup.
SearchResult searchDictionary(std::string_view query, DictionaryItem& item, SearchForm form);

/// Whether the dictionary at `index` takes part in a search while the one at `front` is in front: an independent
/// dictionary is searched only in front, and then alone. `front` may be outside the list.
bool takesPart(const std::vector<std::shared_ptr<DictionaryItem>>& dictionaries, int index, int front);

} // namespace velmarin
