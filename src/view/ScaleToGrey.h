#pragma once

#include "view/Scaling.h"

namespace velmarin {

/// Reduces a 1-bit picture to grey by exact area: ink is counted with population counts over packed words, and the
/// parts of pixels at the borders of a result pixel by their parts.
std::unique_ptr<ScaledRows> scaleToGrey(const Picture& source, const Axis& x, const Axis& y, int x0, int x1);

/// Reduces an 8- or 32-bit picture by exact area: first down the columns, then along the row.
std::unique_ptr<ScaledRows> averageArea(const Picture& source, const Axis& x, const Axis& y, int x0, int x1);

/// (255 * area or less) / area, rounded with halves up. Exact; a floating-point division, corrected, is several times
/// quicker than a 64-bit one.
inline std::uint8_t roundedMean(std::uint64_t sum, std::uint64_t area) {
    const std::uint64_t n = sum + area / 2;
    auto q = static_cast<std::uint64_t>(static_cast<double>(n) / static_cast<double>(area));
    if (q * area > n)
        --q;
    else if ((q + 1) * area <= n)
        ++q;
    return static_cast<std::uint8_t>(q);
}

} // namespace velmarin
