#pragma once

#include <cstdint>

#include "make_scans/Raster.h"
#include "make_scans/Wear.h"

namespace velmarin {

/// A page as it lies on the scanner, by its ink: 0 is blank, 255 full ink. `back` and `facing` may be empty.
struct OpenBook {
    Raster page;
    Raster back;        ///< the other side of the leaf
    Raster facing;      ///< the page on the other side of the gutter
    bool recto = false; ///< the gutter is at the left
};

struct ScannerSettings {
    Wear wear = {};
    ScanTone tone = ScanTone::Grey;
    int dpi = 300;
    std::uint64_t seed = 0;
};

/// Scans a page: wears the type, bends the paper, lights and blurs it. The result is black 0 to white 255, and has only
/// these two values if the tone is Bilevel. The same settings give the same picture on every machine.
///
/// The broken strokes follow Kanungo's model of document degradation in that noise moves the edges of the ink, smooth
/// noise here in place of his single pixels.
Raster scanned(const OpenBook& book, const ScannerSettings& settings);

/// Puts two scans beside each other, the gutter between them, as a scan of an open book has them.
Raster spreadOf(const Raster& left, const Raster& right);

/// Puts a scan on a black table, with a strip of grey patches, as used to check colors, below it.
Raster onTable(const Raster& scan);

} // namespace velmarin
