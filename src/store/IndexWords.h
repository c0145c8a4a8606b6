#pragma once

#include "text/SearchWord.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// The search words of an index, one after the other in one buffer, with the end of each.
struct IndexWords {
    std::string text;
    std::vector<std::uint32_t> ends;
};

/// The search words of all lines of `ind`, a whole index of at most 1 GiB: for each line what indexSearchWord makes of
/// it, but all in one pass, with one table look-up a character. Lines end as in LineReader.
IndexWords readIndexWords(std::string_view ind, const IndexOrder& order);

} // namespace velmarin
