#pragma once

#include "view/Picture.h"

#include <optional>
#include <string>

namespace velmarin {

/// How a page picture that is not black and white is stored.
enum class PageEncoding {
    Lossless,   ///< PNG: it has been kept without loss so far
    Photograph, ///< JPEG: it has been JPEG or the like before
    Rendered,   ///< was rendered: the content decides
};

/// A page picture as a file.
struct EncodedPage {
    std::string bytes = {};
    std::string extension = {}; ///< "tif", "jpg" or "png"
};

/// A picture of 1 bit as TIFF in CCITT G4, any other as `encoding` says. A rendered page that shows ink of one color on
/// white paper is made 1 bit; one of flat tones, such as a drawing, becomes PNG, and any other JPEG. nullopt if memory
/// fails or the picture is too large for the format.
std::optional<EncodedPage> encodePage(const Picture& picture, PageEncoding encoding);

/// The picture turned clockwise by 0, 90, 180 or 270 degrees, without loss. Nil if memory fails.
Picture turnedPicture(const Picture& picture, int degrees);

/// The columns from `left` up to, but not including, `right`. Nil if memory fails.
Picture columnsOf(const Picture& picture, int left, int right);

} // namespace velmarin
