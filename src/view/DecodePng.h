#pragma once

#include "view/DecodedPix.h"

#include <string_view>

namespace velmarin {

/// Decodes a PNG, with libpng. Source: ISO/IEC 15948.
DecodedPix decodePng(std::string_view bytes);

} // namespace velmarin
