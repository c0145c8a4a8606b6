#pragma once

#include "view/Scaling.h"

namespace velmarin {

/// Reduces a 1-bit picture to grey by exact area: counts ink with population counts over packed words, and weights
/// source pixels on the border of a result pixel by the covered part.
std::unique_ptr<ScaledRows> scaleToGrey(const Picture& source, const Axis& x, const Axis& y, int x0, int x1);

/// Reduces an 8- or 32-bit picture by exact area: first down the columns, then along the row.
std::unique_ptr<ScaledRows> averageArea(const Picture& source, const Axis& x, const Axis& y, int x0, int x1);

/// `sum` / area for a sum of at most 255 * area, rounded with halves up. Exact: a corrected floating-point division,
/// several times faster than a 64-bit integer one.
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
