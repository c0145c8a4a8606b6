#include "view/PageRenderer.h"
#include "Pictures.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <tuple>

namespace velmarin {
namespace {

using test::noise;

constexpr DeviceRect screen{0, 0, 400, 300};

Color pixelOf(const PixelBlock& b, int x, int y) {
    const std::uint8_t* row = b.data + (y - b.place.y) * b.stride;
    if (!b.inColor)
        return {row[x - b.place.x], row[x - b.place.x], row[x - b.place.x]};
    const std::uint32_t word = reinterpret_cast<const std::uint32_t*>(row)[x - b.place.x];
    return {static_cast<std::uint8_t>(word >> 16), static_cast<std::uint8_t>(word >> 8),
            static_cast<std::uint8_t>(word)};
}

TEST(Rendering, AtTheOriginalSizeCopiesThePartInView) {
    using Rect = std::array<int, 4>;
    const std::tuple<const char*, int, int, Rect> cases[] = {
        // name, source point, place
        {"at its top", 0, 0, {0, 0, 400, 200}},
        {"moved up", 30, 150, {0, 0, 400, 50}},
        {"moved down by a negative position", 0, -100, {0, 100, 400, 100}},
        {"moved left", 450, 0, {0, 0, 50, 200}},
        {"moved out", 0, 200, {0, 0, 0, 0}}};
    for (const int depth : {1, 8, 32})
        for (const auto& [name, sx, sy, place] : cases) {
            SCOPED_TRACE(name);
            const Picture page = noise(500, 200, depth, 1);
            PageRenderer renderer;
            const PixelBlock b = renderer.render({page, 0, 0, 500, 200, sx, sy, 500, 200}, 1.0, screen);
            EXPECT_EQ((Rect{b.place.x, b.place.y, b.place.width, b.place.height}), place);
            for (int y = place[1]; y < place[1] + place[3]; ++y)
                for (int x = place[0]; x < place[0] + place[2]; ++x)
                    ASSERT_EQ(pixelOf(b, x, y), page.pixel(x + sx, y + sy));
            EXPECT_EQ(renderer.reduced(), nullptr) << "nothing is kept";
        }
}

TEST(Rendering, ComputesOnlyTheRowsInViewAndKeepsThem) {
    const Picture page = Picture::make(1000, 8000, 1);
    PageRenderer renderer;
    PictureDrawn drawn{page, 0, 0, 400, 3200, 0, 0, 1000, 8000};
    renderer.render(drawn, 1.0, screen);
    ASSERT_NE(renderer.reduced(), nullptr);
    const int first = renderer.reduced()->rowsComputed();
    EXPECT_GE(first, 300);
    EXPECT_LT(first, 400);
    drawn.sy = 50;
    renderer.render(drawn, 1.0, screen);
    EXPECT_EQ(renderer.reduced()->rowsComputed(), first) << "20 rows on, all within the last band";
    drawn.sy = 8000 - 750;
    renderer.render(drawn, 1.0, screen);
    EXPECT_LT(renderer.reduced()->rowsComputed(), 800) << "what was passed over is not made";
    renderer.dropCache();
    EXPECT_EQ(renderer.reduced(), nullptr);
}

TEST(Rendering, OfAScrolledPageShowsWhatTheWholePageWouldShow) {
    for (const double scale : {1.0, 1.25, 2.0})
        for (const int depth : {1, 32}) {
            const Picture page = noise(900, 1500, depth, 3);
            const int w = 400, h = 666;
            const Scaling whole(page, 0, 0, 900, 1500, int(std::lround(w * scale)), int(std::lround(h * scale)));
            const int bpp = whole.bytesPerPixel();
            std::vector<std::uint8_t> all(static_cast<std::size_t>(whole.right() * whole.bottom() * bpp));
            whole.band(0, whole.right(), 0, whole.bottom(), all.data(), std::ptrdiff_t{whole.right()} * bpp);
            PageRenderer renderer;
            for (const int sy : {7, 333, 1200}) {
                const PixelBlock b = renderer.render({page, 0, 0, w, h, 0, sy, 900, 1500}, scale, {10, 20, 300, 200});
                ASSERT_EQ(b.place.y, 20);
                const auto shift = std::lround(sy * h * scale / 1500);
                for (int y = 20; y < 20 + b.place.height; ++y)
                    ASSERT_EQ(memcmp(b.data + (y - 20) * b.stride,
                                     all.data() + ((y + shift) * whole.right() + b.place.x) * bpp,
                                     static_cast<std::size_t>(b.place.width * bpp)),
                              0)
                        << scale << " " << sy << " row " << y;
            }
        }
}

TEST(Rendering, OfTheLensTakesDevicePixelsFromThePageItself) {
    // A line of one pixel, reduced in the view; under the lens on a screen of twice the pixels it is sharp again.
    const Picture page = test::drawn(1600, 1200, 1, [](int x, int) { return x == 205 ? 1u : 0u; });
    PageRenderer renderer;
    const PixelBlock lens = renderer.render({page, 100, 50, 100, 50, 200, 100, 50, 25}, 2.0, {0, 0, 800, 600});
    EXPECT_EQ(lens.place.x, 200);
    EXPECT_EQ(lens.place.width, 200);
    EXPECT_EQ(pixelOf(lens, 200 + 5 * 4 + 2, 120).red, 32) << "enlarged fourfold: its middle is all but black";
    EXPECT_EQ(pixelOf(lens, 200 + 3 * 4, 120).red, 255);
    EXPECT_EQ(renderer.reduced(), nullptr);
}

TEST(Rendering, OfTheLensIsClippedByControlAndPage) {
    const Picture page = noise(1600, 1200, 8, 5);
    PageRenderer renderer;
    const PixelBlock b = renderer.render({page, 350, 280, 300, 100, 1500, 1180, 150, 50}, 1.0, screen);
    EXPECT_EQ(b.place.width, 50);
    EXPECT_EQ(b.place.height, 20);
    const PixelBlock edge = renderer.render({page, 10, 10, 300, 100, 1500, 1180, 150, 50}, 1.0, screen);
    EXPECT_EQ(edge.place.width, 200) << "100 pixels of the page are left, at twice the size";
    EXPECT_EQ(edge.place.height, 40);
    EXPECT_TRUE(renderer.render({page, 10, 10, 300, 100, 5000, 0, 150, 50}, 1.0, screen).empty());
    EXPECT_TRUE(renderer.render({page, 10, 10, 300, 100, 0, 0, 0, 0}, 1.0, screen).empty());
    EXPECT_TRUE(renderer.render({page, 10, 10, 300, 100, 0, 0, INT32_MAX, INT32_MAX}, 1.0, screen).empty());
}

} // namespace
} // namespace velmarin
