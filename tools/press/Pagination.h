#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include <pango/pango.h>

namespace velmarin {

/// One line in the stream of a book's text.
struct FlowLine {
    std::shared_ptr<PangoLayoutLine> line; ///< null: an empty one
    double x = 0;                          ///< from the left of the column
    double leading = 0;                    ///< from the baseline before it to its own
    double spaceBefore = 0;                ///< dropped at the head of a column
    bool keepWithNext = false;             ///< no column may end after this line
    bool opensArticle = false;
    std::size_t article = 0; ///< which article it belongs to
};

/// A line at its place on a page.
struct SetLine {
    std::size_t line = 0; ///< index in the flow
    int column = 0;
    double baseline = 0; ///< from the top of the text
};

struct Page {
    std::vector<SetLine> lines;
    /// The articles for the head of the page: the first and the last that open on it, or the one that runs through it.
    std::size_t firstArticle = 0;
    std::size_t lastArticle = 0;
};

/// Fills pages of `columns` columns of `height`. Columns end level where a little more space between articles can make
/// them so; the last page is divided evenly. A line that is to be kept with the next is carried over with it.
std::vector<Page> paginate(const std::vector<FlowLine>& flow, double height, int columns = 2);

} // namespace velmarin
