#include "maintenance/DictionaryOrder.h"

#include <algorithm>

namespace velmarin {

bool DictionaryOrder::move(std::size_t from, std::size_t before) {
    if (from >= rows.size() || before > rows.size() || before == from || before == from + 1)
        return false;
    const auto at = [this](std::size_t row) { return rows.begin() + static_cast<std::ptrdiff_t>(row); };
    if (before < from)
        std::rotate(at(before), at(from), at(from + 1));
    else
        std::rotate(at(from), at(from + 1), at(before));
    return true;
}

std::vector<std::string> DictionaryOrder::lines() const {
    std::vector<std::string> all{groupName};
    all.insert(all.end(), rows.begin(), rows.end());
    return all;
}

} // namespace velmarin
