#pragma once

#include "store/DictionaryItem.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// What a txt line says in its markup; all other text on the line means nothing.
struct TxtLine {
    /// The name in the first "<@_name_>"; empty where there is none.
    std::string imageName;
    /// The names in "<^_name_>", in the order in which taking the first one out again and again finds them.
    std::vector<std::string> errata;
};

/// Reads the markup of one line, in time that grows with its length alone. A name is what matches "<@_(.+?)_>" or
/// "<\^_(.+?)_>".
TxtLine parseTxtLine(std::string_view line);

/// How a search of one dictionary ended.
enum class SearchOutcome {
    Hit,     ///< A line was read: that of the entry before the first greater one.
    Before,  ///< The word sorts before the first entry, so that no line belongs to it.
    After,   ///< No entry is greater than the word: nothing is shown and nothing changes.
    Skipped, ///< An independent dictionary keeps this one out of the search.
};

struct SearchResult {
    SearchOutcome outcome = SearchOutcome::After;
    /// The number of entries that do not sort after the word up to the first that does: the hit's line, counted from 1.
    std::size_t place = 0;
    TxtLine line;
};

/// A search from a tab applies the dictionary's mode to the query; one in list mode does not.
enum class SearchForm { Tab, List };

/// Finds `query` (as typed) in one dictionary, independence aside. A missing `txt` is told by the reader's own message
/// and counts as a line without markup.
SearchResult searchDictionary(std::string_view query, DictionaryItem& item, SearchForm form);

/// Whether the dictionary at `index` takes part in a search while that at `front` is in front: an independent one only
/// when it is itself in front, and no other while an independent one is there. `front` may lie outside the list.
bool takesPart(const std::vector<std::shared_ptr<DictionaryItem>>& dictionaries, int index, int front);

} // namespace velmarin
