#pragma once

#include "view/DecodedPix.h"

#include <string_view>

namespace velmarin {

/// Whether the bytes are a PICT, with or without the 512-byte file header.
bool isPict(std::string_view bytes);

/// Decodes a PICT for which `isPict` is true: pixel maps by ourselves, any other drawing with GraphicsMagick. Source:
/// "Inside Macintosh: Imaging With QuickDraw", appendix A.
DecodedPix decodePict(std::string_view bytes);

} // namespace velmarin
