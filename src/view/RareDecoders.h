#pragma once

#include "store/PictureFormats.h"
#include "view/DecodedPix.h"

#include <string_view>

namespace velmarin {

/// Decodes a picture of a format that isRareFormat. Only in the helper program: see DecodeByHelper.h.
DecodedPix decodeRare(PictureFormat format, std::string_view bytes);

/// Reads what the decoder of a format would read from the disk later.
void prepareRareDecoder(PictureFormat format);

} // namespace velmarin
