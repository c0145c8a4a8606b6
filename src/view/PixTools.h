#pragma once

#include <allheaders.h>

#include <memory>

namespace velmarin {

struct PixDeleter {
    void operator()(Pix* pix) const { pixDestroy(&pix); }
};
using PixPtr = std::unique_ptr<Pix, PixDeleter>;

/// Keeps Leptonica from writing to standard error. To be called before any use of Leptonica; cheap.
void silenceLeptonica();

/// A picture for the caller to fill (1 bit: all paper; otherwise undefined). Null if memory fails or the picture takes
/// more than 2 GB.
PixPtr newPix(int width, int height, int depth);

/// Converts any Leptonica picture to the form of a Picture: 1, 8 or 32 bits, no color map, transparent parts over
/// white. Null gives null.
PixPtr normalForm(PixPtr pix);

/// Reduces a 32-bit picture to the smallest depth that holds it: 1 bit if black and white, 8 bits if grey.
PixPtr inSmallestDepth(PixPtr pix);

/// Lays the color and alpha words of a 32-bit picture over white.
void blendOverWhite(Pix* pix);

} // namespace velmarin
