#pragma once

#include "reading/Guess.h"
#include "reading/PageReading.h"

#include <string>
#include <vector>

namespace velmarin {

/// What the guide words of a page may be. Each list is best first, and empty if the page has no such word.
struct PageGuess {
    std::string page; ///< its file name
    PageLook look = PageLook::Text;
    std::vector<Guess> first = {}, last = {}, number = {};
    /// The page has no guide words, although its neighbours do; `first` is then the first entry on it.
    bool unheaded = false;
};

/// The guide words of a book: decides from all pages where they are (left, right or both, several columns, joined as
/// "AAR–ABB", at the foot, or none at all, so that the first entry counts), separates them from the page number and the
/// running title, and joins words that were torn. One guess for each reading, in the same order.
std::vector<PageGuess> guessGuideWords(const std::vector<PageReading>& readings);

} // namespace velmarin
