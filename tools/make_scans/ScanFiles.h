#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "make_scans/Raster.h"
#include "make_scans/Typesetter.h"
#include "make_scans/Wear.h"

namespace velmarin {

/// The extension of a scan's picture: ".tif" for Bilevel, else ".jpg".
std::string scanExtension(ScanTone tone);

/// Writes a scan: 1-bit Group 4 TIFF, or JPEG of `quality` in grey or on yellowed paper. Throws std::runtime_error
/// naming a file that cannot be written.
void writeScan(const std::filesystem::path& path, const Raster& scan, ScanTone tone, int dpi, int quality);

/// Writes `truth.tsv` (page, number, first, last: one row a page) and `headwords.tsv` (headword, page) of a scan whose
/// pictures have the names `pictures`, one a page.
void writeTruth(const std::filesystem::path& folder, const std::vector<PrintedPage>& pages,
                const std::vector<std::string>& pictures);

/// Binds the pictures of a folder into one multi-page TIFF or PDF, by the extension of `target`. Throws
/// std::runtime_error.
void bindScans(const std::vector<std::filesystem::path>& pictures, const std::filesystem::path& target, int dpi);

} // namespace velmarin
