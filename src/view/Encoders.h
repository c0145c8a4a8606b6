#pragma once

#include "view/Picture.h"

#include <optional>
#include <string>
#include <string_view>

namespace velmarin {

/// The bytes of a picture file of the format that `extension` asks for (case ignored): "tif" and "tiff" one bit a pixel
/// in CCITT G4, "jpg" and "jpeg" at quality 100 with full colour resolution, "png", "bmp". Any other, and none, is PNG,
/// which is what this system's reader recognises by its content under any name. Nothing where the picture is nil,
/// cannot be held by the format, or memory fails.
std::optional<std::string> encodePicture(const Picture& picture, std::string_view extension);

/// The grey that best parts the pixels into two sorts (Otsu 1979: the greatest variance between the classes): the least
/// one that counts as paper.
int otsuThreshold(const Picture& picture);

} // namespace velmarin
