#pragma once

#include "scan/PageText.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

// The text layers that are written as XML. What is damaged is read as far as it goes; nullopt if there is no page in
// it. A box that is missing or absurd counts as empty.

/// The first page of hOCR (hOCR 1.2: `ocr_page`, lines, `ocrx_word`), in its own pixels. HTML that leaves
/// tags open which have no content is read, too.
std::optional<PageText> readHocr(std::string_view html);

/// The first page of ALTO (Library of Congress, versions 1 to 4), in its own unit. The page is as large as it says;
/// otherwise, as its text is.
std::optional<PageText> readAlto(std::string_view xml);

/// A page in hOCR or ALTO of many, as a part of its bytes. readHocr reads it as it is, readAlto after
/// "<alto>".
struct TextPart {
    std::string image; ///< the file name of its picture; empty if it is not told
    std::size_t from = 0, size = 0;
};

/// The pages of hOCR and ALTO in their order.
std::vector<TextPart> hocrParts(std::string_view html);
std::vector<TextPart> altoParts(std::string_view xml);

/// A page as `pdftotext -bbox-layout` writes it, in tenths of a point; width and height are those of the page before it
/// is turned for display.
std::optional<PageText> readPdfText(std::string_view xml);

} // namespace velmarin
