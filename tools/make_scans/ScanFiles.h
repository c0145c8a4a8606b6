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

/// Writes `truth.tsv` (page, number, first, last: one row a page) and `headwords.tsv` (headword, row: of
/// its page in truth.tsv, from 1) of a scan whose
/// pictures have the names `pictures`, one a page.
void writeTruth(const std::filesystem::path& folder, const std::vector<PrintedPage>& pages,
                const std::vector<std::string>& pictures);

/// Binds pictures into one file, by the extension of `target`: ".pdf", which holds TIFF and JPEG data as they are,
/// ".djvu", by the programs of djvulibre, or else a TIFF of many pages. Throws std::runtime_error.
void bindScans(const std::vector<std::filesystem::path>& pictures, const std::filesystem::path& target, int dpi);

} // namespace velmarin
