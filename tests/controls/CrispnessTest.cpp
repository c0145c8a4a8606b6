#include "controls/BevelButton.h"
#include "controls/ProgressBar.h"
#include "controls/TabPanel.h"

#include "Ink.h"

#include <gtest/gtest.h>

#include <set>

namespace velmarin {
namespace {

class Crispness : public ::testing::TestWithParam<double> {};

/// The colours along the middle of the top edge, from outside in, as far as `depth`; each row has to be of one colour.
std::vector<QRgb> edgeRows(const QImage& image, int from, int to, int depth) {
    std::vector<QRgb> rows;
    for (int y = 0; y < depth; ++y) {
        std::set<QRgb> colours;
        for (int x = from; x < to; ++x)
            colours.insert(image.pixel(x, y));
        EXPECT_EQ(colours.size(), 1u) << "row " << y;
        rows.push_back(*colours.begin());
    }
    return rows;
}

TEST_P(Crispness, FrameOfAButtonIsWholeDevicePixelsWide) {
    const double scale = GetParam();
    BevelButton button;
    button.resize(70, 16);
    const QImage image = test::painted(button, scale);
    const int line = qRound(scale);
    const auto rows = edgeRows(image, image.width() / 4, image.width() / 2, line + 1);
    for (int y = 1; y < line; ++y)
        EXPECT_EQ(rows[static_cast<std::size_t>(y)], rows[0]);
    EXPECT_GT(qGray(rows.back()) - qGray(rows[0]), 60) << "no blurred row between frame and face";
}

TEST_P(Crispness, ArrowOfAMenuHasNoHalfTones) {
    BevelButton plain;
    BevelButton menu;
    menu.setHasMenu(true);
    plain.resize(80, 16);
    menu.resize(80, 16);
    const QImage with = test::painted(menu, GetParam());
    const QRect arrow = test::difference(test::painted(plain, GetParam()), with);
    std::set<QRgb> colours;
    for (int x = arrow.left(); x <= arrow.right(); ++x)
        colours.insert(with.pixel(x, arrow.top()));
    EXPECT_EQ(colours.size(), 1u);
    EXPECT_EQ(arrow.width() % 2, 1) << "its point is one pixel";
    EXPECT_NEAR(arrow.width() / GetParam(), 7, 1.5);
}

TEST_P(Crispness, FrameOfAPageIsOneLine) {
    TabPanel panel;
    panel.resize(300, 200);
    QWidget* page = panel.insertPanel(0, "Latin");
    const QImage image = test::painted(*page, GetParam());
    const int line = qRound(GetParam());
    const auto rows = edgeRows(image, image.width() / 4, image.width() / 2, line + 1);
    EXPECT_EQ(rows[static_cast<std::size_t>(line) - 1], rows[0]);
    EXPECT_NE(rows.back(), rows[0]);
}

INSTANTIATE_TEST_SUITE_P(Scales, Crispness, ::testing::Values(1.0, 1.5, 2.0, 3.0));

} // namespace
} // namespace velmarin
