#pragma once

#include "view/PixTools.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace velmarin {

/// A decoder's result: a picture in normal form, or null and the reason. A picture with a reason is damaged.
struct DecodedPix {
    PixPtr pix;
    std::string reason;

    static DecodedPix failed(std::string reason) { return {nullptr, std::move(reason)}; }
    static DecodedPix tooLarge(std::int64_t width, std::int64_t height);
    static DecodedPix noMemory() { return failed("there is not enough memory for the picture"); }
};

DecodedPix decodeTiff(std::string_view bytes);
DecodedPix decodeJpeg(std::string_view bytes);
DecodedPix decodePng(std::string_view bytes);
DecodedPix decodeBmp(std::string_view bytes);
DecodedPix decodeJpeg2000(std::string_view bytes);

/// Reads a PICT with or without its 512-byte file header.
DecodedPix decodePict(std::string_view bytes);

/// Decodes with GraphicsMagick, as the named format only: "PICT", "GIF", "WEBP", "PNM", "PCX", "TGA" or "BMP". All
/// other formats are unregistered, so no content makes it run a program or read another file.
DecodedPix decodeByMagick(std::string_view bytes, const char* format);

/// Lays the colour and alpha words of a 32-bit picture over white.
void blendOverWhite(Pix* pix);

} // namespace velmarin
