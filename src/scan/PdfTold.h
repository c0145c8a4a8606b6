#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

// What poppler's programs tell of a PDF, as text.

/// The number of pages, of `pdfinfo`; 0 if it is missing.
std::size_t pdfPageCount(std::string_view told);

/// A page in the output of `pdfinfo -box`: its visible part in points, before it is turned, and the turn in degrees
/// clockwise.
struct PdfPage {
    double width = 0, height = 0;
    int turn = 0;
};
PdfPage pdfPage(std::string_view told);

/// A row of `pdfimages -list`.
struct PdfImage {
    std::string type; ///< "image", "stencil", "mask" or "smask"
    int width = 0, height = 0;
    bool ink = false;   ///< 1 bit a pixel
    std::string coding; ///< "image" for none with loss, "jpeg", "jpx", "ccitt", "jbig2"
};
std::vector<PdfImage> pdfImages(std::string_view told);

} // namespace velmarin
