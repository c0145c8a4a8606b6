#pragma once

#include "scan/PageText.h"
#include "view/Picture.h"
#include "view/PixTools.h"

#include <vector>

namespace velmarin {

/// How a straightened, reduced page lies on the page picture. Both have their origin at the top left.
struct Straightening {
    double angle = 0;                  ///< radians, clockwise: what the page was turned by
    double centerX = 0, centerY = 0;   ///< of the reduced page: the point about which it was turned
    double reduction = 1;              ///< pixels of the picture to one of the reduced page
    int pageWidth = 0, pageHeight = 0; ///< of the picture

    /// A box of the straight page in pixels of the picture: what encloses its corners, within the picture.
    PageBox onPage(const PageBox& straight) const;
    /// The same, but it may reach beyond the picture.
    PageBox enclosingOnPage(const PageBox& straight) const;
    /// The opposite.
    PageBox onStraight(const PageBox& page) const;
};

/// A page reduced to about 100 dots an inch, in 1 bit, without the black borders of the scan, and straight.
struct StraightPage {
    PixPtr ink;         ///< letters and pictures. Null if memory fails or the picture is nil
    PixPtr rules;       ///< the straight lines that were taken out of `ink`, horizontal and vertical
    double xHeight = 0; ///< the usual height of a letter, in pixels of `ink`; 0 if there are no letters
    Straightening straightening;
};

/// Turns a page by up to 5 degrees.
StraightPage straightenPage(const Picture& picture);

/// The ink of a grey picture whose paper may be dark, uneven, or show the print of the other side. `window` is about
/// the height of a line of text. Null if memory fails.
PixPtr inkOf(Pix* grey, int window);

/// The part of the page picture that shows a box of the straight page, straight, in 8 bits, with as many pixels as the
/// picture has there, white beyond its edges. Null if memory fails or the box is empty or wholly outside.
PixPtr cutStraight(const Picture& picture, const Straightening& straightening, const PageBox& straight);

/// The boxes of the 8-connected parts of a 1-bit picture.
std::vector<PageBox> componentsOf(Pix* ink);

/// A copy of a part of a picture.
PixPtr cutOut(Pix* pix, const PageBox& box);

/// The median of what is at least one number; 0 of none.
double medianOf(std::vector<double> numbers);

} // namespace velmarin
