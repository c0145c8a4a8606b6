#pragma once

#include "view/Decoders.h"
#include "view/Picture.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace velmarin::test {

/// The bytes of `picture` as Leptonica writes them in one of its formats (IFF_...).
std::string encoded(const Picture& picture, int format);

/// What the decoders make of a file of this name and these bytes.
DecodedPicture decoded(const std::string& name, std::string_view bytes);

/// How a TIFF is laid out. Samples come from `value(x, y, sample)` and are written in `bits` bits each.
struct TiffLayout {
    int width = 37, height = 23;
    int bits = 1, samples = 1;
    int photometric = 1; ///< 0 white is 0, 1 black is 0, 2 RGB, 3 palette, 5 CMYK
    int compression = 1;
    int tile = 0; ///< side of a tile; 0: strips
    int rowsPerStrip = 7;
    int fillOrder = 1;
    int orientation = 1;
    bool planes = false;                     ///< each sample in a plane of its own
    int extraSample = -1;                    ///< what the last sample is: 2 unassociated alpha
    std::vector<std::uint16_t> palette = {}; ///< red, green, blue, each 2^bits entries
};
std::string tiff(const TiffLayout& layout, const std::function<unsigned(int, int, int)>& value);

/// A JPEG of four inks, each 0 (none) to 255, from `ink(x, y, i)`; `adobe`: with Adobe's mark and upside down.
std::string cmykJpeg(int width, int height, bool adobe, const std::function<unsigned(int, int, int)>& ink);

/// How a PICT is laid out.
struct PictLayout {
    std::size_t lead = 512; ///< bytes before it
    int version = 2;
    int bands = 1;       ///< maps one below the other
    bool masked = false; ///< each with a mask region
    int bits = 1;        ///< of a pixel; 8 goes by a colour table, which here holds greys
    int scale = 1;       ///< by which the maps are drawn enlarged
};
/// A PICT that shows `picture` (grey, or ink) in packed rows.
std::string pict(const Picture& picture, const PictLayout& layout = {});

} // namespace velmarin::test
