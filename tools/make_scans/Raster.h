#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace velmarin {

/// A picture of one byte a pixel. What 0 and 255 mean is up to its user: no ink and full ink, or black and white.
struct Raster {
    int width = 0, height = 0;
    std::vector<std::uint8_t> pixels = {};

    Raster() = default;
    Raster(int w, int h, std::uint8_t value = 0)
        : width(w), height(h), pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h), value) {}

    bool empty() const { return pixels.empty(); }
    std::uint8_t* row(int y) { return pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width); }
    const std::uint8_t* row(int y) const {
        return pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
    }
    /// The value between four pixels; 0 outside.
    float at(float x, float y) const;
};

inline float Raster::at(float x, float y) const {
    if (x < 0 || y < 0 || x >= static_cast<float>(width - 1) || y >= static_cast<float>(height - 1))
        return 0;
    const int left = static_cast<int>(x);
    const int top = static_cast<int>(y);
    const float dx = x - static_cast<float>(left);
    const float dy = y - static_cast<float>(top);
    const std::uint8_t* upper = row(top) + left;
    const std::uint8_t* lower = upper + width;
    const float above = static_cast<float>(upper[0]) * (1 - dx) + static_cast<float>(upper[1]) * dx;
    const float below = static_cast<float>(lower[0]) * (1 - dx) + static_cast<float>(lower[1]) * dx;
    return above * (1 - dy) + below * dy;
}

/// Blurs by three passes of a box, which come close to a Gaussian of `sigma` pixels.
void blur(Raster& picture, double sigma);

} // namespace velmarin
