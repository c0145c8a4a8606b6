#pragma once

#include <cstdint>

namespace velmarin {

/// Produces rows of a scaled picture. A row depends on the source alone, so a band equals that part of the whole.
class ScaledRows {
  public:
    virtual ~ScaledRows() = default;
    /// Writes row `y` of the result to `to`: one byte of grey per pixel, or one word 0xffRRGGBB.
    virtual void row(int y, std::uint8_t* to) = 0;
};

/// `sum` / `area`, rounded with halves up, for a sum of at most 255 * area. Exact: a corrected floating-point division,
/// several times faster than a 64-bit integer division.
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
