#include "make_scans/Raster.h"

#include <cmath>

namespace velmarin {

namespace {

constexpr int kPasses = 3;

/// One pass of a box of fractional `radius` over a line of `count` values that are `step` apart. `line` is scratch.
void blurLine(std::uint8_t* first, int count, std::ptrdiff_t step, double radius, std::vector<float>& line) {
    const int whole = static_cast<int>(radius);
    const auto part = static_cast<float>(radius - whole);
    const float scale = 1 / (2 * static_cast<float>(whole) + 1 + 2 * part);
    const int pad = whole + 1;
    line.resize(static_cast<std::size_t>(count + 2 * pad));
    for (int i = -pad; i < count + pad; ++i)
        line[static_cast<std::size_t>(i + pad)] = first[std::clamp(i, 0, count - 1) * step];
    float sum = 0;
    for (int i = 0; i < 2 * whole + 1; ++i)
        sum += line[static_cast<std::size_t>(i + 1)];
    for (int i = 0; i < count; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const float edges = line[at] + line[at + 2 * static_cast<std::size_t>(pad)];
        first[i * step] = static_cast<std::uint8_t>((sum + part * edges) * scale + 0.5F);
        sum += line[at + 2 * static_cast<std::size_t>(pad)] - line[at + 1];
    }
}

} // namespace

void blur(Raster& picture, double sigma) {
    if (sigma <= 0 || picture.empty())
        return;
    const double radius = (std::sqrt(12 * sigma * sigma / kPasses + 1) - 1) / 2;
    std::vector<float> line;
    for (int pass = 0; pass < kPasses; ++pass) {
        for (int y = 0; y < picture.height; ++y)
            blurLine(picture.row(y), picture.width, 1, radius, line);
        for (int x = 0; x < picture.width; ++x)
            blurLine(picture.pixels.data() + x, picture.height, picture.width, radius, line);
    }
}

} // namespace velmarin
