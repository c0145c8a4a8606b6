#pragma once

#include "view/Picture.h"

#include <optional>
#include <string>
#include <string_view>

namespace velmarin {

/// The bytes of a picture file of the format that `extension` asks for (case ignored): "tif" and "tiff" one bit a pixel
/// in CCITT G4, "jpg" and "jpeg" with full color resolution, "png", "bmp". Any other, or none, gives
/// PNG, which decodePicture recognizes under any name. Returns nullopt if the picture is nil, the format cannot hold
/// it, or memory fails.
std::optional<std::string> encodePicture(const Picture& picture, std::string_view extension, int jpegQuality = 100);

/// The threshold that best separates ink from paper (Otsu 1979: the greatest variance between the classes), as the
/// lowest grey that counts as paper.
int otsuThreshold(const Picture& picture);

} // namespace velmarin
