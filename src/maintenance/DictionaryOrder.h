#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace velmarin {

/// What the order editor edits: the title of a group, and its dictionaries in order.
struct DictionaryOrder {
    std::string groupName;
    std::vector<std::string> rows;

    /// Moves row `from` to the position before the present row `before`, which may be the number of rows. Returns false
    /// if there are no such rows or nothing changes.
    bool move(std::size_t from, std::size_t before);

    /// The lines of `pNewDicPref`: the name of the group, then the dictionaries.
    std::vector<std::string> lines() const;
};

} // namespace velmarin
