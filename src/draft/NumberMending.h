#pragma once

#include "reading/PageGuess.h"

#include <string>
#include <vector>

namespace velmarin {

/// What is known of the number printed on a page.
struct NumberGuess {
    std::vector<Guess> readings = {}; ///< best first
    bool set = false;                 ///< the first reading is a person's
};

/// The printed numbers of a book: each page has the number that its neighbours let expect, since pages count on by one,
/// or by two if their columns are numbered. A reading that disagrees with them is an outlier unless later pages count
/// on from it. Roman numbers count by themselves. Empty for pages that cannot be told, and for unnumbered plates.
std::vector<std::string> mendedNumbers(const std::vector<NumberGuess>& guesses);

} // namespace velmarin
