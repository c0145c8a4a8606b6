#pragma once

#include "view/DecodedPix.h"

#include <string_view>

namespace velmarin {

/// Decodes a JPEG, with libjpeg: grey, color or four inks. A file whose end is missing or damaged gives what can be
/// read and a reason. Source: ITU-T T.81; APP14 segment of Adobe for the inks.
DecodedPix decodeJpeg(std::string_view bytes);

} // namespace velmarin
