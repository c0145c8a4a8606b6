#pragma once

#include "reading/HeadParts.h"

#include <optional>
#include <vector>

namespace velmarin {

/// Where a book has its guide words, by the vote of its pages.
struct GuideLayout {
    enum class Kind {
        None,     ///< nowhere
        Pair,     ///< a first and a last word on each page; of several over the columns the outermost
        First,    ///< one word a page, its first
        Last,     ///< one word a page, its last
        Mirrored, ///< one word a page in the outer corner: the first at the left, the last at the right
    };
    Kind kind = Kind::None;
    bool foot = false;                 ///< at the foot of the pages
    double y = 0;                      ///< of their line, of the page's height
    double first = 0;                  ///< Pair: where the first words begin
    double last = 1;                   ///< Pair: where the last words end
    bool numberInLine = false;         ///< the page numbers are in the line of the guide words
    std::optional<double> number = {}; ///< Pair: the middle of the page numbers, if they have one place
};

/// The guide words of a page, if it has them.
struct PlacedParts {
    std::optional<HeadPart> first = {}, last = {}, number = {};
};

/// Finds the places of the page numbers, one or the two outer corners, and takes short misread parts there for numbers.
void claimNumbers(std::vector<std::vector<HeadPart>>& pages);

/// Takes out of `pages` what repeats throughout the book: running titles and headings of letters.
void removeRunningTitles(std::vector<std::vector<HeadPart>>& pages);

/// @param pages the parts of each page, without running titles
/// @param firstIsEntry for each page whether the one word on it is known to be the first entry (+1), the last (-1) or
///                     neither (0)
GuideLayout guideLayoutOf(const std::vector<std::vector<HeadPart>>& pages, const std::vector<int>& firstIsEntry);

PlacedParts placedParts(const std::vector<HeadPart>& parts, const GuideLayout& layout);

} // namespace velmarin
