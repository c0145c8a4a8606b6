#pragma once

#include "store/PictureFormats.h"
#include "view/DecodedPix.h"

#include <string_view>

namespace velmarin {

/// Decodes a picture of a format that isRareFormat. Only in the helper program: see DecodeByHelper.h.
DecodedPix decodeRare(PictureFormat format, std::string_view bytes);

/// Loads what the libraries read from the disk when they are first used.
void prepareRareDecoders();

} // namespace velmarin
