#pragma once

#include "view/DecodedPix.h"

#include <string_view>

namespace velmarin {

/// Makes GraphicsMagick ready, and reads what it needs from the disk; cheap after the first time.
void initializeMagick();

/// Decodes with GraphicsMagick, as the named format only: "PICT", "GIF", "WEBP", "PNM", "PCX", "TGA" or "BMP". All
/// other formats are unregistered, so no content makes it run a program or read another file.
DecodedPix decodeByMagick(std::string_view bytes, const char* format);

} // namespace velmarin
