#include "reading/PageLayout.h"

#include "DrawnPage.h"

#include <gtest/gtest.h>

#include <cmath>

namespace velmarin {
namespace {

struct LayoutCase {
    const char* name;
    DrawnPage page;
    std::size_t headRows, footRows;
};

class FindsHead : public testing::TestWithParam<LayoutCase> {};

TEST_P(FindsHead, ColumnsHeadAndFoot) {
    const StraightPage page = straightenPage(draw(GetParam().page));
    const PageLayout layout = layoutOf(page);
    EXPECT_EQ(layout.look, PageLook::Text);
    EXPECT_EQ(layout.columns.size(), static_cast<std::size_t>(GetParam().page.columns));
    EXPECT_EQ(layout.footRows.size(), GetParam().footRows);
    ASSERT_EQ(layout.headRows.size(), GetParam().headRows);
    EXPECT_NEAR(page.straightening.angle, -GetParam().page.skew * 3.14159 / 180, 0.004);
    for (const TextColumn& column : layout.columns)
        EXPECT_NEAR(static_cast<double>(column.lines.size()), kDrawnLines, 1);
    if (layout.headRows.empty())
        return;
    // The words drawn, and nothing of the lines below them.
    const double scale = page.straightening.reduction;
    EXPECT_NEAR(layout.headRows[0].y * scale, 70, 12);
    EXPECT_LT(layout.headRows[0].bottom() * scale, 98);
}

INSTANTIATE_TEST_SUITE_P(
    Pages, FindsHead,
    testing::Values(
        LayoutCase{"Ruled", {.columns = 3, .head = {"ABACUS", "17", "ABBOT"}, .ruled = true}, 1, 0},
        LayoutCase{"Gap", {.columns = 2, .head = {"ABACUS", "ABBOT"}, .foot = "17"}, 1, 1},
        LayoutCase{"SkewedRule", {.columns = 3, .head = {"ABACUS", "17", "ABBOT"}, .ruled = true, .skew = 2}, 1, 0},
        LayoutCase{"SkewedGap", {.columns = 2, .head = {"ABACUS", "17", "ABBOT"}, .skew = -1.5}, 1, 0},
        LayoutCase{"Bordered", {.columns = 2, .head = {"ABACUS", "17", "ABBOT"}, .ruled = true, .border = 25}, 1, 0},
        LayoutCase{"DarkPaper",
                   {.columns = 3, .head = {"ABACUS", "17", "ABBOT"}, .ruled = true, .skew = 1, .grey = true},
                   1,
                   0},
        LayoutCase{"OneColumn", {.columns = 1, .head = {"ABACUS", "17"}}, 1, 0},
        LayoutCase{"NoHead", {.columns = 2}, 0, 0}),
    [](const auto& info) { return info.param.name; });

TEST(PageLayout, TellsPlatesAndBlankPages) {
    const auto lookOf = [](Picture picture) { return layoutOf(straightenPage(picture)).look; };
    EXPECT_EQ(lookOf(Picture::make(900, 1200, 1)), PageLook::Blank);
    EXPECT_EQ(lookOf(Picture::make(900, 1200, 8)), PageLook::Blank);
    EXPECT_EQ(lookOf(Picture::make(3, 2, 1)), PageLook::Blank);
    // A halftone: dots on a grid, thicker and thinner.
    Picture plate = Picture::make(900, 1200, 1);
    for (int y = 200; y < 900; y += 6) {
        for (int x = 150; x < 750; x += 6)
            pixRasterop(plate.pixelsToDrawOn(1), x, y, 3 + x / 100 % 3, 3 + y / 90 % 3, PIX_SET, nullptr, 0, 0);
    }
    EXPECT_EQ(lookOf(plate), PageLook::Plate);
}

TEST(Straightening, LeadsToThePageAndBack) {
    const Straightening turned{
        .angle = 0.03, .centerX = 500, .centerY = 600, .reduction = 2, .pageWidth = 2000, .pageHeight = 2400};
    const PageBox box{300, 100, 80, 20}, back = turned.onStraight(turned.onPage(box));
    EXPECT_NEAR(back.x + back.width / 2.0, box.x + box.width / 2.0, 2);
    EXPECT_NEAR(back.y + back.height / 2.0, box.y + box.height / 2.0, 2);
    EXPECT_GT(turned.onPage(box).y, 200); // clockwise: the left half of the straight page comes from farther down
}

} // namespace
} // namespace velmarin
