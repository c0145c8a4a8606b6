#pragma once

#include "store/PictureFormats.h"
#include "view/DecodedPix.h"

#include <cstdint>
#include <string_view>

namespace velmarin {

// The rarer formats are decoded by `velmarin-decode`, a program of one picture: it has the picture's bytes as
// descriptor kDecoderInput, writes a DecodedHeader and the rows of the picture to kDecoderOutput, a file in memory, and
// ends. It can open no file, reach no network and start no process, and is limited in memory and time, so that what a
// damaged or hostile picture does to its decoder is the end of that program and the reason why the page is not shown.

inline constexpr int kDecoderInput = 3;
inline constexpr int kDecoderOutput = 4;

/// What precedes the rows, which are those of a Pix: 32-bit words in the order of the processor.
struct DecodedHeader {
    std::uint32_t width = 0, height = 0, depth = 0; ///< 0 if the decoder failed
    char reason[244] = {};                          ///< as in DecodedPix, ended by a zero
};

/// Whether a format is decoded by the helper: all but TIFF, PNG and JPEG.
bool isRareFormat(PictureFormat format);

/// Decodes the picture in an open file, whose position does not matter.
DecodedPix decodeByHelper(PictureFormat format, int file);
/// Decodes a picture in memory.
DecodedPix decodeByHelper(PictureFormat format, std::string_view bytes);

} // namespace velmarin
