#pragma once

#include "view/Picture.h"

#include <string_view>

namespace velmarin {

/// Reads a PBM, PGM or PPM in its raw form with 8 bits a sample (P4, P5, P6), as the programs that read scans write it,
/// a PPM into the smallest depth that holds its pixels. Nil if it is none of these or not whole. Source: netpbm's
/// pbm(5), pgm(5), ppm(5).
Picture readRawPnm(std::string_view bytes);

} // namespace velmarin
