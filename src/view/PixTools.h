#pragma once

#include <allheaders.h>

#include <memory>

namespace velmarin {

struct PixDeleter {
    void operator()(Pix* pix) const { pixDestroy(&pix); }
};
using PixPtr = std::unique_ptr<Pix, PixDeleter>;

/// Keeps Leptonica from writing to standard error. Called before its first use; cheap.
void silenceLeptonica();

/// A picture for the caller to fill (1 bit: all paper; otherwise undefined), or null if memory fails or the picture
/// takes more than 2 GB.
PixPtr newPix(int width, int height, int depth);

/// Converts any of Leptonica's forms to that of a Picture: 1, 8 or 32 bits, no colour map, transparent parts over
/// white. Null gives null.
PixPtr normalForm(PixPtr pix);

/// Reduces a 32-bit picture to the smallest depth that holds it: 1 bit if black and white, 8 bits if grey.
PixPtr leanest(PixPtr pix);

} // namespace velmarin
