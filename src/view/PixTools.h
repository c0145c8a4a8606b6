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

/// A picture for the caller to fill (1 bit: all paper; otherwise undefined), or null where memory fails or 2 GB would
/// not do.
PixPtr newPix(int width, int height, int depth);

/// Any of Leptonica's forms as a picture is kept: 1, 8 or 32 bits, no colour map, transparent parts over white.
/// Null gives null.
PixPtr normalForm(PixPtr pix);

/// A 32-bit picture in the least depth that holds it: 1 bit where it is black and white alone, 8 bits where it is grey.
PixPtr leanest(PixPtr pix);

} // namespace velmarin
