#pragma once

#include "scan/PageText.h"

#include <vector>

namespace velmarin {

/// The part of a strip that is kept in view when it is wider than the view.
enum class StripSide { Left, Middle, Right };

/// What is to be shown of a page, in a view of `width` by `height` pixels.
struct StripRequest {
    int pageWidth = 0, pageHeight = 0; ///< of the picture, in its own pixels
    PageBox strip = {};                ///< in pixels of the picture; empty: the top of the page
    int width = 0, height = 0;
    double zoom = 1; ///< 1: as wide as the view
    StripSide side = StripSide::Left;
};

/// Where which part of a page is shown.
struct StripPlan {
    PageBox source = {}; ///< in pixels of the picture
    PageBox target = {}; ///< in pixels of the view
    PageBox strip = {};  ///< the strip itself, in pixels of the view; around it is what follows on the page
};

/// A part of a strip, and where it is drawn.
struct StripPiece {
    PageBox source = {}; ///< in pixels of the picture
    PageBox target = {}; ///< in pixels of the view
};

/// The words of a strip, enlarged side by side without the blank between them, at the top of the view. Each is as near
/// to its place on the page as the others let it be. Empty if they would not be larger than in planStrip.
///
/// @param words their boxes on the page, from left to right
std::vector<StripPiece> planWords(const StripRequest& request, const std::vector<PageBox>& words);

/// The strip as large as the view allows, and as much of the page below it (above it, if it is at the foot of the page)
/// as there is room for. Nothing is enlarged more than twice.
StripPlan planStrip(const StripRequest& request);

} // namespace velmarin
