#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace velmarin {

/// The formats of page images. Each has a row in PictureFormats.cpp, and a decoder in view/RareDecoders.cpp, which does
/// not compile without it.
enum class PictureFormat { Jpeg, Png, Tiff, Bmp, Jpeg2000, Gif, WebP, Pnm, Pict, Pcx, Tga };

/// The extensions of the files that a new `ImageIndex` lists, in small letters without the dot.
extern const std::set<std::string> pPictureExtensions;

/// The format of a picture file with these bytes and this extension (in any case). The extension alone decides for
/// JPEG and PNG, and for TGA, which has no signature; the content decides for all others. nullopt if it is none of
/// these formats.
std::optional<PictureFormat> pictureFormat(std::string_view bytes, std::string_view extension);

/// Where the PICT in these bytes begins: at 0, or after a file header of 512 bytes; npos if they are not a PICT.
std::size_t pictStart(std::string_view bytes);

} // namespace velmarin
