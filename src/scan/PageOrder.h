#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// The order in which people number files: runs of digits compare by their value, so that "p2" comes before "p10", and
/// everything else as in listings.
bool comesBefore(std::string_view one, std::string_view other);

void sortPages(std::vector<std::string>& names);

} // namespace velmarin
