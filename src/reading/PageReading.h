#pragma once

#include "scan/PageText.h"

#include <string>
#include <vector>

namespace velmarin {

/// What a page looks like as a whole.
enum class PageLook {
    Text,  ///< columns of text
    Plate, ///< mostly a picture
    Blank, ///< nothing is printed on it
};

/// What was read of one page, before the rest of the book is considered. Boxes are in pixels of the page picture as it
/// is shown.
struct PageReading {
    std::string page; ///< its file name
    PageLook look = PageLook::Text;
    PageText head = {}; ///< the lines above the columns: guide words and page number
    PageText foot = {}; ///< the lines below them, such as a page number
    /// The first words of the lines that begin an entry, by column and from the top: outdented or bold. Only as many as
    /// were read.
    std::vector<std::vector<TextLine>> entryStarts = {};
    PageBox headStrip = {};     ///< what a person must see to read the guide words
    bool fromTextLayer = false; ///< the words come with the scan and were not recognized
};

} // namespace velmarin
