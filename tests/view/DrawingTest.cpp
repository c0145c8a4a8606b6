#include "ImageFiles.h"
#include "support/PictureDifference.h"
#include "view/PageRenderer.h"
#include "view/PictureDrawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <tuple>

namespace velmarin {
namespace {

using test::difference;
using test::drawn;
using test::noise;

Color pixelOf(const PixelBlock& b, int x, int y) {
    const std::uint8_t* row = b.data + (y - b.place.y) * b.stride;
    if (!b.inColor)
        return {row[x - b.place.x], row[x - b.place.x], row[x - b.place.x]};
    const std::uint32_t word = reinterpret_cast<const std::uint32_t*>(row)[x - b.place.x];
    return {static_cast<std::uint8_t>(word >> 16), static_cast<std::uint8_t>(word >> 8),
            static_cast<std::uint8_t>(word)};
}

/// The pixels of a part of a scaling, kept in `bytes`.
PixelBlock bandOf(const Scaling& s, const DeviceRect& part, std::vector<std::uint8_t>& bytes) {
    const std::ptrdiff_t stride = std::ptrdiff_t{part.width} * s.bytesPerPixel();
    bytes.resize(static_cast<std::size_t>(stride * part.height));
    s.band(part.x, part.x + part.width, part.y, part.y + part.height, bytes.data(), stride);
    return {part, s.inColor(), bytes.data(), stride};
}

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
    for (int v = std::max(0, -s.sy); v < std::min(s.sh, p.Height() - s.sy); ++v) {
        const std::int64_t down = overlap(y, s.sh, s.height, v);
        for (int u = std::max(0, -s.sx); down > 0 && u < std::min(s.sw, p.Width() - s.sx); ++u) {
            const std::int64_t weight = down * overlap(x, s.sw, s.width, u);
            const Color c = weight > 0 ? p.pixel(s.sx + u, s.sy + v) : kBlack;
            area += weight;
            red += weight * c.red;
            green += weight * c.green;
            blue += weight * c.blue;
        }
    }
    auto mean = [&](std::int64_t sum) { return static_cast<std::uint8_t>((2 * sum + area) / (2 * area)); };
    return {mean(red), mean(green), mean(blue)};
}

/// Compares the part of a reduction from `skipped` columns and rows on.
void expectLiteralMean(const Picture& p, const Shape& s, int skipped = 0) {
    const Scaling scaling(p, s.sx, s.sy, s.sw, s.sh, s.width, s.height);
    const int left = std::min(scaling.left() + skipped, scaling.right()),
              top = std::min(scaling.top() + skipped, scaling.bottom());
    std::vector<std::uint8_t> bytes;
    const PixelBlock band = bandOf(scaling, {left, top, scaling.right() - left, scaling.bottom() - top}, bytes);
    for (int y = top; y < scaling.bottom(); ++y)
        for (int x = left; x < scaling.right(); ++x)
            ASSERT_EQ(pixelOf(band, x, y), literalMean(p, s, x, y))
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
        expectLiteralMean(noise(width, height, depth, random()), s, round % 5);
    }
}

TEST(Reduction, HoldsAtTheEdgesOfPackedWords) {
    for (const Shape& s : {Shape{0, 0, 330, 3, 10, 1}, Shape{0, 0, 320, 3, 10, 3}, Shape{0, 0, 330, 3, 1, 2},
                           Shape{31, 0, 64, 3, 2, 2}, Shape{32, 1, 33, 2, 1, 1}, Shape{1, 0, 255, 3, 255, 2},
                           Shape{0, 0, 330, 3, 400, 2}, Shape{63, 0, 267, 3, 8, 1}, Shape{0, 0, 330, 3, 10, 7}})
        expectLiteralMean(noise(330, 3, 1, 3), s);
}

TEST(Enlargement, RunsEvenlyFromOnePixelToTheNextUnlessSharp) {
    for (const auto& [sharp, greys] :
         {std::pair(false, std::array{0, 0, 32, 96, 159, 223, 255, 255}), {true, {0, 0, 0, 0, 255, 255, 255, 255}}})
        for (const auto& [depth, left, down] :
             {std::tuple(1, 0, true), {1, 3, false}, {8, 3, true}, {8, 5, false}, {32, 0, false}, {32, 5, true}}) {
            const Picture step = drawn(2, 2, depth, [&, depth = depth, down = down](int x, int y) {
                return ((down ? y : x) == 0) == (depth == 1) ? 0x00ffffu : 0u; // green and blue, if in color
            });
            const Scaling s(step, 0, 0, 2, 2, 8, 8, sharp ? Scaling::Smoothing::Nearest : Scaling::Smoothing::Smooth);
            std::vector<std::uint8_t> bytes;
            const PixelBlock band = bandOf(s, {left, 1, 8 - left, 7}, bytes);
            for (int x = left; x < 8; ++x)
                for (int y = 1; y < 8; ++y) {
                    const auto grey = static_cast<std::uint8_t>(greys[static_cast<std::size_t>(down ? y : x)]);
                    EXPECT_EQ(pixelOf(band, x, y), RGB(depth == 32 ? 0 : grey, grey, grey)) << depth << ": " << x;
                }
        }
}

TEST(WhiteEdges, CoverTheFirstRowAndColumnAndNothingElse) {
    for (const int depth : {1, 8, 32}) {
        Picture page = noise(65, 34, depth, 1);
        const Picture edged = Picture(page).withWhiteEdges();
        EXPECT_EQ(edged.depth(), depth);
        for (int y = 0; y < 34; ++y)
            for (int x = 0; x < 65; ++x)
                ASSERT_EQ(edged.pixel(x, y), x == 0 || y == 0 ? kWhite : page.pixel(x, y)) << x << "," << y;
        EXPECT_EQ(difference(page, noise(65, 34, depth, 1)), 0) << "the shared picture was drawn on";
        const Pix* before = page.pix();
        const std::uint64_t id = page.id();
        const Picture taken = std::move(page).withWhiteEdges();
        EXPECT_EQ(taken.pix(), before) << "not shared: not copied";
        EXPECT_NE(taken.id(), id) << "a cache of the old pixels would be kept";
    }
}

TEST(DrawingIntoAPicture, ClipsWithoutChangingScaleOrPixels) {
    const struct {
        const char* name;
        int x, y, sx, sy;
    } cases[] = {
        {"inside", 3, 2, 0, 0},          {"over the right bottom", 15, 8, 0, 0}, {"over the top left", -4, -5, 0, 0},
        {"source overruns", 0, 0, 7, 6}, {"source begins before", 2, 1, -3, -4}, {"outside", 40, 0, 0, 0}};
    for (const int depth : {1, 8, 32})
        for (const auto& c : cases) {
            SCOPED_TRACE(c.name);
            const Picture source = noise(20, 12, depth, 2);
            Picture canvas = Picture::make(24, 14, 1);
            ASSERT_TRUE(DrawPicture(canvas, source, c.x, c.y, 20, 12, c.sx, c.sy, 20, 12));
            const auto within = [](int u, int from, int size) {
                return u >= std::max(0, -from) && u < size - std::max(0, from);
            };
            for (int y = 0; y < 14; ++y)
                for (int x = 0; x < 24; ++x) {
                    const int u = x - c.x, v = y - c.y;
                    const bool covered = within(u, c.sx, 20) && within(v, c.sy, 12);
                    ASSERT_EQ(canvas.pixel(x, y), covered ? source.pixel(u + c.sx, v + c.sy) : kWhite) << x << "," << y;
                }
        }
}

TEST(DrawingIntoAPicture, SmoothsOnlyWhenAsked) {
    const Picture dots = drawn(4, 4, 1, [](int x, int y) { return static_cast<std::uint32_t>((x + y) % 2); });
    for (const bool smooth : {true, false}) {
        Picture canvas = Picture::make(12, 12, 1);
        canvas.AntiAlias = smooth;
        ASSERT_TRUE(DrawPicture(canvas, dots, 0, 0, 12, 12, 0, 0, 4, 4));
        EXPECT_EQ(canvas.depth(), smooth ? 8 : 1);
        for (int i = 0; i < 144 && !smooth; ++i)
            ASSERT_EQ(canvas.pixel(i % 12, i / 12), dots.pixel(i % 12 / 3, i / 12 / 3));
    }
}

constexpr DeviceRect screen{0, 0, 400, 300};

TEST(Rendering, ComputesOnlyTheRowsInViewAndKeepsThem) {
    const Picture page = Picture::make(1000, 8000, 1);
    PageRenderer renderer;
    const auto rowsAfter = [&](int sy) {
        renderer.render({page, 0, 0, 400, 3200, 0, sy, 1000, 8000}, 1.0, screen);
        return renderer.reduced()->rowsComputed();
    };
    const int first = rowsAfter(0);
    EXPECT_GE(first, 300);
    EXPECT_LT(first, 400);
    EXPECT_EQ(rowsAfter(50), first) << "20 rows on, all within the last band";
    EXPECT_LT(rowsAfter(8000 - 750), 800) << "what was passed over is not made";
    renderer.dropCache();
    EXPECT_EQ(renderer.reduced(), nullptr);
}

TEST(Rendering, OfAScrolledPageShowsThatPartOfTheWholePage) {
    const Picture pages[] = {noise(900, 1500, 1, 3), noise(500, 150, 8, 1), noise(900, 1500, 32, 3)};
    const std::tuple<double, int, int> views[] = {{1.0, 900, 1500}, {1.0, 400, 666}, {1.25, 400, 666}, {2.0, 400, 666}};
    for (const Picture& page : pages)
        for (const auto& [scale, width, height] : views) {
            const int iw = page.Width(), ih = page.Height(), w = std::min(width, iw), h = std::min(height, ih);
            const int right = int(std::lround(w * scale)), bottom = int(std::lround(h * scale));
            std::vector<std::uint8_t> bytes;
            const PixelBlock whole = bandOf(Scaling(page, 0, 0, iw, ih, right, bottom), {0, 0, right, bottom}, bytes);
            for (const auto& [sx, sy] : {std::pair(0, 7), {0, 333}, {30, -100}, {450, 90}, {0, 1500}}) {
                SCOPED_TRACE(std::to_string(scale) + ": " + std::to_string(sx) + ", " + std::to_string(sy));
                const int dx = int(std::lround(1.0 * sx * right / iw)), dy = int(std::lround(1.0 * sy * bottom / ih));
                const int top = std::max(20, -dy), columns = std::min(310, right - dx) - 10,
                          rows = std::min(220, bottom - std::max(0, dy)) - top;
                PageRenderer renderer;
                const PixelBlock b = renderer.render({page, 0, 0, w, h, sx, sy, iw, ih}, scale, {10, 20, 300, 200});
                EXPECT_TRUE(w < iw || !renderer.reduced()) << "nothing is kept";
                ASSERT_EQ(b.empty(), columns <= 0 || rows <= 0);
                if (b.empty())
                    continue;
                ASSERT_EQ(std::tuple(b.place.x, b.place.y, b.place.width, b.place.height),
                          std::tuple(10, top, columns, rows));
                for (int y = top; y < top + rows; ++y)
                    for (int x = 10; x < 10 + columns; ++x)
                        ASSERT_EQ(pixelOf(b, x, y), pixelOf(whole, x + dx, y + dy)) << x << "," << y;
            }
        }
}

TEST(Rendering, OfTheLensTakesDevicePixelsFromThePageItself) {
    // A line of one pixel, reduced in the view; under the lens on a screen of twice the pixels it is sharp again.
    const Picture page = drawn(1600, 1200, 1, [](int x, int) { return x == 205 ? 1u : 0u; });
    PageRenderer renderer;
    const PixelBlock lens = renderer.render({page, 100, 50, 100, 50, 200, 100, 50, 25}, 2.0, {0, 0, 800, 600});
    EXPECT_EQ(lens.place.x, 200);
    EXPECT_EQ(lens.place.width, 200);
    EXPECT_EQ(pixelOf(lens, 200 + 5 * 4 + 2, 120).red, 32) << "enlarged fourfold: its middle is all but black";
    EXPECT_EQ(pixelOf(lens, 200 + 3 * 4, 120).red, 255);
    EXPECT_EQ(renderer.reduced(), nullptr);
}

TEST(Rendering, OfTheLensIsClippedByControlAndPage) {
    const struct {
        const char* name;
        int x, y, sx, sy, sw, sh, width, height;
    } cases[] = {{"control", 350, 280, 1500, 1180, 150, 50, 50, 20},
                 {"page: 100 pixels are left, at twice the size", 10, 10, 1500, 1180, 150, 50, 200, 40},
                 {"beyond the page", 10, 10, 5000, 0, 150, 50, 0, 0},
                 {"empty", 10, 10, 0, 0, 0, 0, 0, 0},
                 {"too large", 10, 10, 0, 0, INT32_MAX, INT32_MAX, 0, 0}};
    const Picture page = noise(1600, 1200, 8, 5);
    PageRenderer renderer;
    for (const auto& c : cases) {
        const PixelBlock b = renderer.render({page, c.x, c.y, 300, 100, c.sx, c.sy, c.sw, c.sh}, 1.0, screen);
        EXPECT_EQ(std::pair(b.place.width, b.place.height), std::pair(c.width, c.height)) << c.name;
    }
}

} // namespace
} // namespace velmarin
