#pragma once

#include "draft/Draft.h"
#include "making/KeyRule.h"
#include "text/SearchWord.h"

#include <cstddef>
#include <string>

namespace velmarin {

/// The guide words of a page.
enum class GuidePlace { First, Last };

/// What order `word` breaks as the first or last word of a row, in words: "comes before ‘abacus’ on page 12". Empty if
/// none. It is compared with the other word of the row and with the nearest rows that can be trusted and keep the order
/// themselves. Fast enough for each key.
std::string orderProblem(const Draft& draft, std::size_t row, GuidePlace place, const std::string& word,
                         const KeyRule& rule, const IndexOrder& order);

/// Why a row is doubtful, in words: "‘abx’ comes after ‘abbot’ on page 14", "nothing was read". Empty if it is not
/// doubtful.
std::string doubtReason(const Draft& draft, std::size_t row, const KeyRule& rule, const IndexOrder& order);

} // namespace velmarin
