#include "controls/ProgressBar.h"

#include "Ink.h"

#include <QTest>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

struct BarCase {
    const char* name;
    Qt::Orientation orientation;
    int maximum, value;
    double share;
};

class BarLengths : public ::testing::TestWithParam<BarCase> {};

TEST_P(BarLengths, AreTheShareThatIsDone) {
    const BarCase& row = GetParam();
    ProgressBar bar(row.orientation);
    const bool vertical = row.orientation == Qt::Vertical;
    bar.resize(vertical ? QSize(12, 402) : QSize(402, 12));
    bar.setMaximum(row.maximum);
    bar.setValue(row.value);
    const QImage image = test::painted(bar);
    const QColor done = bar.palette().color(QPalette::Highlight);
    int filled = 0;
    for (int along = 0; along < 402; ++along)
        filled += (vertical ? image.pixelColor(6, along) : image.pixelColor(along, 6)) == done ? 1 : 0;
    EXPECT_EQ(filled, qRound(row.share * 400));
    const bool atItsStart = (vertical ? image.pixelColor(6, 400) : image.pixelColor(1, 6)) == done;
    EXPECT_EQ(atItsStart, row.share > 0) << "it grows from the bottom, or from the left";
}

INSTANTIATE_TEST_SUITE_P(
    ProgressBar, BarLengths,
    ::testing::Values(BarCase{"Empty", Qt::Vertical, 20, 0, 0}, BarCase{"Half", Qt::Vertical, 20, 10, 0.5},
                      BarCase{"Quarter", Qt::Horizontal, 20, 5, 0.25}, BarCase{"Full", Qt::Vertical, 20, 20, 1},
                      BarCase{"BeyondTheEnd", Qt::Vertical, 20, 25, 1}, BarCase{"Negative", Qt::Vertical, 20, -3, 0},
                      BarCase{"OneDictionaryOnly", Qt::Vertical, 0, 0, 0},
                      BarCase{"NegativeMaximum", Qt::Vertical, -1, 5, 0}),
    [](const auto& info) { return info.param.name; });

/// Counts its paintings.
struct CountedBar : ProgressBar {
    using ProgressBar::ProgressBar;
    int painted = 0;
    void paintEvent(QPaintEvent* event) override {
        ++painted;
        ProgressBar::paintEvent(event);
    }
};

TEST(ProgressBar, IsPaintedBeforeTheCallReturns) {
    CountedBar bar(Qt::Vertical);
    bar.resize(12, 400);
    bar.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&bar));
    bar.painted = 0;
    bar.setValue(40);
    EXPECT_GE(bar.painted, 1);
    bar.painted = 0;
    bar.setMaximum(50);
    EXPECT_GE(bar.painted, 1);
}

TEST(ProgressBar, ScreenReadersGetTheSameNumbers) {
    ProgressBar bar(Qt::Vertical);
    bar.setMaximum(24);
    bar.setValue(10);
    const QProgressBar& base = bar;
    EXPECT_EQ(base.maximum(), 24);
    EXPECT_EQ(base.value(), 10);
    EXPECT_EQ(bar.Maximum(), 24);
    EXPECT_EQ(bar.Value(), 10);
}

} // namespace
} // namespace velmarin
