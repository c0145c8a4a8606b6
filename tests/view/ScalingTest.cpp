#include "view/Scaling.h"
#include "Pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <vector>

namespace velmarin {
namespace {

using test::drawn;
using test::noise;

struct Shape {
    int sx, sy, sw, sh, width, height;
};

/// How much of a source pixel lies under a pixel of the result, in units of 1/result.
std::int64_t overlap(std::int64_t d, std::int64_t length, std::int64_t result, std::int64_t pixel) {
    return std::max<std::int64_t>(0, std::min((d + 1) * length, (pixel + 1) * result) -
                                         std::max(d * length, pixel * result));
}

/// The mean of what lies under a pixel of the result, written out.
Color literalMean(const Picture& p, const Shape& s, int x, int y) {
    std::int64_t red = 0, green = 0, blue = 0, area = 0;
    for (int v = 0; v < s.sh; ++v) {
        const std::int64_t down = overlap(y, s.sh, s.height, v);
        if (down == 0 || s.sy + v < 0 || s.sy + v >= p.Height())
            continue;
        for (int u = 0; u < s.sw; ++u) {
            const std::int64_t weight = down * overlap(x, s.sw, s.width, u);
            if (weight == 0 || s.sx + u < 0 || s.sx + u >= p.Width())
                continue;
            const Color c = p.pixel(s.sx + u, s.sy + v);
            area += weight;
            red += weight * c.red;
            green += weight * c.green;
            blue += weight * c.blue;
        }
    }
    auto mean = [&](std::int64_t sum) { return static_cast<std::uint8_t>((2 * sum + area) / (2 * area)); };
    return {mean(red), mean(green), mean(blue)};
}

/// All the visible pixels of a scaling, in rows.
std::vector<std::uint8_t> whole(const Scaling& s) {
    const std::ptrdiff_t stride = std::ptrdiff_t{s.right() - s.left()} * s.bytesPerPixel();
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(stride * (s.bottom() - s.top())));
    s.band(s.left(), s.right(), s.top(), s.bottom(), bytes.data(), stride);
    return bytes;
}

Color pixelOf(const Scaling& s, const std::vector<std::uint8_t>& bytes, int x, int y) {
    const auto at = static_cast<std::size_t>((y - s.top()) * (s.right() - s.left()) + x - s.left());
    if (!s.inColor())
        return {bytes[at], bytes[at], bytes[at]};
    const std::uint32_t word = reinterpret_cast<const std::uint32_t*>(bytes.data())[at];
    return {static_cast<std::uint8_t>(word >> 16), static_cast<std::uint8_t>(word >> 8),
            static_cast<std::uint8_t>(word)};
}

void expectLiteralMean(const Picture& p, const Shape& s) {
    const Scaling scaling(p, s.sx, s.sy, s.sw, s.sh, s.width, s.height);
    const std::vector<std::uint8_t> bytes = whole(scaling);
    for (int y = scaling.top(); y < scaling.bottom(); ++y)
        for (int x = scaling.left(); x < scaling.right(); ++x)
            ASSERT_EQ(pixelOf(scaling, bytes, x, y), literalMean(p, s, x, y))
                << p.depth() << " bits, " << p.Width() << "x" << p.Height() << " from " << s.sx << "," << s.sy << " "
                << s.sw << "x" << s.sh << " to " << s.width << "x" << s.height << " at " << x << "," << y;
}

TEST(Reduction, IsTheMeanOfTheAreaAtAnyRatioAndOverrun) {
    std::mt19937 random(2);
    auto within = [&](int low, int high) {
        return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
    };
    for (int round = 0; round < 250; ++round) {
        const int width = within(1, 150), height = within(1, 60), depth = std::array{1, 8, 32}[round % 3];
        Shape s{0, 0, width, height, 0, 0};
        if (round % 2 == 0) // a part that overruns the picture; the scale stays
            s = {within(-40, 100), within(-20, 40), within(1, 150), within(1, 70), 0, 0};
        s.width = within(1, s.sw);
        s.height = within(1, s.sh);
        expectLiteralMean(noise(width, height, depth, random()), s);
    }
}

TEST(Reduction, HoldsAtTheEdgesOfPackedWords) {
    for (const Shape& s : {Shape{0, 0, 330, 3, 10, 1}, Shape{0, 0, 320, 3, 10, 3}, Shape{0, 0, 330, 3, 1, 2},
                           Shape{31, 0, 64, 3, 2, 2}, Shape{32, 1, 33, 2, 1, 1}, Shape{1, 0, 255, 3, 255, 2},
                           Shape{0, 0, 330, 3, 400, 2}, Shape{63, 0, 267, 3, 8, 1}})
        expectLiteralMean(noise(330, 3, 1, 3), s);
}

TEST(Scaling, OfABandEqualsThatPartOfTheWhole) {
    // Reduced, enlarged, copied, and wider but lower.
    const std::array<int, 3> cases[] = {{1, 37, 29},    {8, 37, 29},  {32, 37, 29}, {1, 300, 211},
                                        {32, 300, 211}, {8, 101, 90}, {1, 200, 40}};
    for (const auto& [depth, width, height] : cases) {
        SCOPED_TRACE(std::to_string(depth) + " bits to " + std::to_string(width));
        const Scaling s(noise(101, 90, depth, 4), 0, 0, 101, 90, width, height);
        const std::vector<std::uint8_t> all = whole(s);
        const int x0 = width / 3, x1 = width - 2, y0 = height / 4, y1 = height / 2;
        const int bpp = s.bytesPerPixel();
        std::vector<std::uint8_t> part(static_cast<std::size_t>((x1 - x0) * (y1 - y0) * bpp));
        s.band(x0, x1, y0, y1, part.data(), std::ptrdiff_t{x1 - x0} * bpp);
        for (int y = y0; y < y1; ++y)
            ASSERT_TRUE(std::equal(part.begin() + std::ptrdiff_t{y - y0} * (x1 - x0) * bpp,
                                   part.begin() + std::ptrdiff_t{y - y0 + 1} * (x1 - x0) * bpp,
                                   all.begin() + (std::ptrdiff_t{y} * width + x0) * bpp))
                << "row " << y;
    }
}

TEST(Enlargement, TakesTheNearestPixelIfNotSmooth) {
    const Picture steps = drawn(3, 1, 8, [](int x, int) { return static_cast<std::uint32_t>(100 * x); });
    const Scaling s(steps, 0, 0, 3, 1, 7, 2, Scaling::Smoothing::Nearest);
    EXPECT_EQ(whole(s), (std::vector<std::uint8_t>{0, 0, 100, 100, 100, 200, 200, 0, 0, 100, 100, 100, 200, 200}));
}

TEST(Enlargement, RunsEvenlyFromOnePixelToTheNext) {
    const Picture step = drawn(2, 1, 8, [](int x, int) { return x == 0 ? 0u : 200u; });
    const Scaling s(step, 0, 0, 2, 1, 8, 4);
    const std::vector<std::uint8_t> bytes = whole(s);
    std::vector<int> row;
    for (int x = 0; x < 8; ++x)
        row.push_back(pixelOf(s, bytes, x, 2).red);
    EXPECT_EQ(row, (std::vector<int>{0, 0, 25, 75, 125, 175, 200, 200}));
}

} // namespace
} // namespace velmarin
