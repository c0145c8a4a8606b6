#pragma once

#include "view/Picture.h"

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace velmarin::test {

/// A page of lines of ink, the same for the same seed, in 1 or 8 bits. `margin` is white on all sides.
Picture printedPage(int width, int height, int depth, unsigned seed, int margin = 40);

/// A page of a PDF that is made by hand.
struct PdfPageText {
    std::string content;                  ///< drawing operators
    std::vector<std::string> images = {}; ///< objects, drawn as /I0, /I1 ...
    std::string more = {};                ///< entries of its dictionary
    std::string box = "0 0 288 384";      ///< in points
};
/// A PDF of these pages. `objects` are appended to it, from number 4 on; /F is a font.
std::string pdfOf(const std::vector<PdfPageText>& pages, const std::vector<std::string>& objects = {},
                  const std::string& trailer = {});

/// An image object. Codings: "" (samples as they are), "CCITTFaxDecode", "DCTDecode".
std::string pdfImage(const Picture& picture, const std::string& coding, const std::string& more = {});
/// Draws image `number` over the whole page.
std::string drawImage(int number = 0, const std::string& matrix = "288 0 0 384 0 0");
/// Writes words at the top of the page with the font /F.
std::string drawWords(const std::vector<std::pair<int, std::string>>& atX);

/// A TIFF of several pages with the compression that libtiff calls by this number.
std::string tiffOf(const std::vector<Picture>& pages, int compression);

/// A DjVu file of 1-bit pages at 300 dpi, made with the programs of DjVuLibre in `folder`.
std::filesystem::path djvuOf(const std::vector<Picture>& pages, const std::filesystem::path& folder);

} // namespace velmarin::test
