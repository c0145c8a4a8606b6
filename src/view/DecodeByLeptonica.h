#pragma once

#include "view/DecodedPix.h"

#include <string_view>

namespace velmarin {

/// Decodes a BMP; rare kinds go on to GraphicsMagick.
DecodedPix decodeBmp(std::string_view bytes);

DecodedPix decodeJpeg2000(std::string_view bytes);

} // namespace velmarin
