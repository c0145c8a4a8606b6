#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace velmarin {

/// What the order editor edits: the display name of a group, and its dictionaries in order.
struct DictionaryOrder {
    std::string groupName;
    std::vector<std::string> rows;

    /// Moves row `from` so that it stands before what is row `before` now; the number of rows means the end. False
    /// where there are no such rows or nothing changes.
    bool move(std::size_t from, std::size_t before);

    /// The lines of `pNewDicPref`: the name of the group, then the dictionaries.
    std::vector<std::string> lines() const;
};

} // namespace velmarin
