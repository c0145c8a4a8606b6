#pragma once

#include "view/DecodedPix.h"

#include <string_view>

namespace velmarin {

/// Decodes the first page of a TIFF, with libtiff: any layout in 1 to 16 bits of ink or light, everything else in
/// color. Source: TIFF 6.0 (Adobe, 1992).
DecodedPix decodeTiff(std::string_view bytes);

} // namespace velmarin
