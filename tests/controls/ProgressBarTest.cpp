#include "controls/ProgressBar.h"

#include "Ink.h"

#include <QTest>

#include <algorithm>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

constexpr int kLength = 400;

ProgressBar& sized(ProgressBar& bar) {
    bar.resize(bar.orientation() == Qt::Vertical ? QSize(12, kLength + 2) : QSize(kLength + 2, 12));
    return bar;
}

/// Which pixels along the bar are done, from its start at the bottom or at the left.
std::vector<bool> done(ProgressBar& bar) {
    const QImage image = test::painted(bar);
    const bool vertical = bar.orientation() == Qt::Vertical;
    std::vector<bool> pixels;
    for (int along = 1; along <= kLength; ++along)
        pixels.push_back((vertical ? image.pixelColor(6, kLength + 1 - along) : image.pixelColor(along, 6)) ==
                         bar.palette().color(QPalette::Highlight));
    return pixels;
}

int first(const std::vector<bool>& pixels) {
    return static_cast<int>(std::find(pixels.begin(), pixels.end(), true) - pixels.begin());
}

TEST(ProgressBar, ShowsTheShareThatIsDone) {
    const struct {
        Qt::Orientation orientation;
        int value;
        double share;
    } cases[] = {{Qt::Vertical, 0, 0},
                 {Qt::Vertical, 10, 0.5},
                 {Qt::Horizontal, 5, 0.25},
                 {Qt::Vertical, 25, 1},
                 {Qt::Vertical, -3, 0}};
    for (const auto& row : cases) {
        SCOPED_TRACE(row.value);
        ProgressBar bar(row.orientation);
        sized(bar).setMaximum(20);
        bar.setValue(row.value);
        const std::vector<bool> pixels = done(bar);
        EXPECT_EQ(std::count(pixels.begin(), pixels.end(), true), qRound(row.share * kLength));
        EXPECT_EQ(first(pixels) == 0, row.share > 0) << "it grows from the bottom, or from the left";
    }
}

TEST(ProgressBar, APieceRunsFromTheStartToTheEndRepeatedlyIfTheEndIsUnknown) {
    for (const auto& [orientation, maximum] : {std::pair(Qt::Vertical, 0), {Qt::Horizontal, -1}}) {
        ProgressBar bar(orientation);
        sized(bar).show();
        bar.setMaximum(maximum);
        auto* step = bar.findChild<QTimer*>("step");
        ASSERT_TRUE(step->isActive());
        EXPECT_EQ(bar.maximum(), bar.minimum()) << "what a screen reader asks";
        std::vector<int> starts;
        int rounds = 0;
        for (int turn = 0; turn < 100; ++turn) {
            const int start = first(done(bar));
            ASSERT_LT(start, kLength) << "something is always visible";
            rounds += turn > 0 && start < starts.back() ? 1 : 0;
            starts.push_back(start);
            QMetaObject::invokeMethod(step, "timeout");
        }
        EXPECT_EQ(starts.front(), 0);
        EXPECT_GT(*std::max_element(starts.begin(), starts.end()), kLength * 9 / 10);
        EXPECT_GE(rounds, 2);

        bar.showFull();
        const std::vector<bool> full = done(bar);
        EXPECT_EQ(std::count(full.begin(), full.end(), true), kLength);
        EXPECT_EQ(bar.value(), bar.maximum());
        EXPECT_FALSE(step->isActive());
        bar.setMaximum(maximum);
        EXPECT_TRUE(step->isActive());
        bar.hide();
        EXPECT_FALSE(step->isActive());
    }
}

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

} // namespace
} // namespace velmarin
