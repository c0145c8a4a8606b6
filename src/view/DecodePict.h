#pragma once

#include "view/DecodedPix.h"

#include <string_view>

namespace velmarin {

/// Decodes a PICT, with or without the 512-byte file header: pixel maps by ourselves, any other drawing with
/// GraphicsMagick. Source: "Inside Macintosh: Imaging With QuickDraw", appendix A.
DecodedPix decodePict(std::string_view bytes);

} // namespace velmarin
