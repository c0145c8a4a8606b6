#pragma once

#include <algorithm>
#include <cstdint>

namespace velmarin {

/// One direction of a scaling: `length` source pixels from `start` become `result` pixels. The source has `size`
/// pixels; if the range overruns it, the result is clipped and the scale stays. Positions in the range are counted in
/// units of 1/result of a source pixel. A result pixel covers exactly `length` units, so all bounds are whole numbers.
struct Axis {
    int size = 0;
    int start = 0;
    int length = 0;
    int result = 0;

    /// The greatest length; every sum then fits 64 bits.
    static constexpr int kMaxLength = 1 << 24;
    bool usable() const { return size > 0 && length > 0 && result > 0 && length <= kMaxLength && result <= kMaxLength; }
    bool identical() const { return length == result; }

    std::int64_t unitsBegin() const { return std::max<std::int64_t>(0, -std::int64_t{start}) * result; }
    std::int64_t unitsEnd() const { return std::min<std::int64_t>(length, std::int64_t{size} - start) * result; }

    /// The result pixels that show any of the source: begin <= d < end.
    int begin() const { return static_cast<int>(std::min<std::int64_t>(unitsBegin() / std::max(length, 1), result)); }
    int end() const {
        if (unitsEnd() <= unitsBegin())
            return begin();
        return static_cast<int>(std::min<std::int64_t>((unitsEnd() + length - 1) / length, result));
    }

    /// Where pixel d of the result begins, in units, clipped to the source; d may be end().
    std::int64_t bound(int d) const {
        return std::clamp<std::int64_t>(std::int64_t{d} * length, unitsBegin(), std::max(unitsBegin(), unitsEnd()));
    }
    /// The source pixel that holds a bound, and how far into it the bound lies (0 to result - 1).
    int pixelAt(std::int64_t units) const { return static_cast<int>(units / result) + start; }
    int fractionAt(std::int64_t units) const { return static_cast<int>(units % result); }
};

} // namespace velmarin
