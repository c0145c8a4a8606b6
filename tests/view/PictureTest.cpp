#include "Pictures.h"
#include "view/PictureDrawing.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

using test::drawn;
using test::noise;
using test::samePixels;

constexpr Color white = RGB(255, 255, 255);

TEST(WhiteEdges, CoverTheFirstRowAndColumnAndNothingElse) {
    for (const int depth : {1, 8, 32}) {
        const Picture page = noise(65, 34, depth, 1);
        const Picture edged = Picture(page).withWhiteEdges();
        EXPECT_EQ(edged.depth(), depth);
        for (int y = 0; y < 34; ++y)
            for (int x = 0; x < 65; ++x)
                ASSERT_EQ(edged.pixel(x, y), x == 0 || y == 0 ? white : page.pixel(x, y))
                    << depth << ": " << x << "," << y;
        EXPECT_TRUE(samePixels(page, noise(65, 34, depth, 1))) << "the shared picture was drawn on";
    }
}

TEST(WhiteEdges, CopyNothingOfAPictureThatIsNotShared) {
    Picture page = noise(65, 34, 8, 1);
    const Pix* before = page.pix();
    const std::uint64_t id = page.id();
    const Picture edged = std::move(page).withWhiteEdges();
    EXPECT_EQ(edged.pix(), before);
    EXPECT_NE(edged.id(), id) << "a cache of the old pixels would be kept";
}

TEST(DrawingIntoAPicture, ClipsWithoutChangingScaleOrPixels) {
    struct Case {
        const char* name;
        int x, y, sx, sy;
    };
    for (const int depth : {1, 8, 32})
        for (const Case& c : {Case{"inside", 3, 2, 0, 0}, Case{"over the right bottom", 15, 8, 0, 0},
                              Case{"over the top left", -4, -5, 0, 0}, Case{"source overruns", 0, 0, 7, 6},
                              Case{"source begins before", 2, 1, -3, -4}, Case{"outside", 40, 0, 0, 0}}) {
            SCOPED_TRACE(c.name);
            const Picture source = noise(20, 12, depth, 2);
            Picture canvas = Picture::make(24, 14, 1);
            ASSERT_TRUE(DrawPicture(canvas, source, c.x, c.y, 20, 12, c.sx, c.sy, 20, 12));
            for (int y = 0; y < 14; ++y)
                for (int x = 0; x < 24; ++x) {
                    const int u = x - c.x, v = y - c.y;
                    const bool covered = u >= 0 && u < 20 && v >= 0 && v < 12 && u + c.sx >= 0 && u + c.sx < 20 &&
                                         v + c.sy >= 0 && v + c.sy < 12;
                    ASSERT_EQ(canvas.pixel(x, y), covered ? source.pixel(u + c.sx, v + c.sy) : white) << x << "," << y;
                }
        }
}

TEST(DrawingIntoAPicture, SmoothsOnlyWhenAsked) {
    const Picture dots = drawn(4, 4, 1, [](int x, int y) { return static_cast<std::uint32_t>((x + y) % 2); });
    Picture smooth = Picture::make(12, 12, 1);
    ASSERT_TRUE(DrawPicture(smooth, dots, 0, 0, 12, 12, 0, 0, 4, 4));
    EXPECT_EQ(smooth.depth(), 8);
    Picture sharp = Picture::make(12, 12, 1);
    sharp.AntiAlias = false;
    ASSERT_TRUE(DrawPicture(sharp, dots, 0, 0, 12, 12, 0, 0, 4, 4));
    EXPECT_EQ(sharp.depth(), 1);
    for (int y = 0; y < 12; ++y)
        for (int x = 0; x < 12; ++x)
            ASSERT_EQ(sharp.pixel(x, y), dots.pixel(x / 3, y / 3));
}

} // namespace
} // namespace velmarin
