#pragma once

#include "scan/PageText.h"
#include "view/Picture.h"

#include <string>
#include <vector>

namespace velmarin {

/// A small page of a dictionary, drawn in Leptonica's font: entries with hanging lines in columns.
struct DrawnPage {
    int columns = 2;
    std::vector<std::string> head = {}; ///< the first one at the left, the last one at the right
    std::string foot = {};
    bool ruled = false;
    double skew = 0;   ///< degrees
    int border = 0;    ///< of black around it
    bool grey = false; ///< on dark, uneven paper
};

/// Where the words of the head are before the page is turned.
inline constexpr PageBox kDrawnHead{60, 60, 880, 30};

inline constexpr int kDrawnLines = 48; ///< of each column

Picture draw(const DrawnPage& page);

} // namespace velmarin
