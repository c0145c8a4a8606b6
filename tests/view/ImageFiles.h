#pragma once

#include "view/Decoders.h"
#include "view/Picture.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin::test {

/// A picture of `depth` bits whose pixel x, y is made of the low bits of `value(x, y)`: 1 bit of ink, a grey, or
/// 0xRRGGBB.
Picture drawn(int width, int height, int depth, const std::function<std::uint32_t(int, int)>& value);

/// A picture of noise, the same for the same seed.
Picture noise(int width, int height, int depth, unsigned seed);

/// A picture as text, with rows separated by '/': for a grey pixel its value's first hexadecimal digit, R, G or B for
/// the pure colors, '?' for any other.
std::string asText(const Picture& picture);

/// The bytes of a picture as Leptonica writes them in one of its formats (IFF_...).
std::string encoded(Pix* pix, int format);

/// Decodes a file of this name and these bytes.
DecodedPicture decoded(const std::string& name, std::string_view bytes);

/// What Leptonica does not write.
struct TiffLayout {
    int photometric = 1; ///< 0: white is 0, 1: black is 0, 2: RGB
    int compression = 1;
    int tile = 0; ///< side of a tile; 0: strips of 7 rows
    int orientation = 1;
    int samples = 3; ///< of a color picture; the fourth is alpha
    bool planes = false;
    int sampleFormat = 1; ///< 3: floating-point
};
/// A TIFF with the samples of `pix` (1, 8 or 32 bits) as they are.
std::string tiff(Pix* pix, const TiffLayout& layout);

/// A JPEG of 16 by 16 pixels of the inks 200, 30, 30 and 100 of black.
std::string cmykJpeg(bool adobe);

/// A pixel map of two rows in a PICT.
struct PictMapLayout {
    int opcode, width, bits;
    std::string data, table; ///< hexadecimal
    int packType = 0, components = 3, scale = 1;
};
/// A PICT of maps one below the other. Neither its frame nor the bounds of its maps begin at 0.
std::string pict(const std::vector<PictMapLayout>& maps, int version = 2);

/// A PICT of 8 by 2 pixels of ink: "0000ffff/ffff0000" as text.
std::string smallPict();

/// The most memory that this process has had, in KB.
long mostMemory();

} // namespace velmarin::test
