#include "controls/ProgressBar.h"

#include "Ink.h"

#include <QTest>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

constexpr int kLength = 400;

struct CountedBar : ProgressBar {
    explicit CountedBar(Qt::Orientation orientation) : ProgressBar(orientation) {
        resize(orientation == Qt::Vertical ? QSize(12, kLength + 2) : QSize(kLength + 2, 12));
    }
    int paintings = 0;
    void paintEvent(QPaintEvent* event) override {
        ++paintings;
        ProgressBar::paintEvent(event);
    }
    /// The place and the length of the done part, from the bottom or from the left.
    std::pair<int, int> done() {
        const QImage image = test::painted(*this);
        std::vector<int> places;
        for (int along = 0; along < kLength; ++along)
            if (image.pixelColor(orientation() == Qt::Vertical ? QPoint(6, kLength - along) : QPoint(along + 1, 6)) ==
                palette().color(QPalette::Highlight))
                places.push_back(along);
        return places.empty() ? std::pair(-1, 0) : std::pair(places.front(), static_cast<int>(places.size()));
    }
};

TEST(ProgressBar, ShowsTheShareThatIsDoneFromTheBottomOrTheLeftBeforeTheCallReturns) {
    const std::tuple<int, std::pair<int, int>> cases[] = {
        {10, {0, 200}}, {5, {0, 100}}, {25, {0, 400}}, {0, {-1, 0}}, {-3, {-1, 0}}};
    for (const Qt::Orientation orientation : {Qt::Vertical, Qt::Horizontal}) {
        CountedBar bar(orientation);
        bar.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&bar));
        bar.setMaximum(20);
        for (const auto& [value, done] : cases) {
            bar.paintings = 0;
            bar.setValue(value);
            EXPECT_GE(bar.paintings, 1);
            EXPECT_EQ(bar.done(), done) << value;
        }
    }
}

TEST(ProgressBar, APieceRunsFromTheStartToTheEndRepeatedlyIfTheEndIsUnknown) {
    for (const auto& [orientation, maximum] : {std::pair(Qt::Vertical, 0), {Qt::Horizontal, -1}}) {
        CountedBar bar(orientation);
        bar.show();
        bar.setMaximum(maximum);
        auto* step = bar.findChild<QTimer*>("step");
        ASSERT_TRUE(step->isActive());
        EXPECT_EQ(bar.maximum(), bar.minimum()) << "what a screen reader asks";
        int last = 0, farthest = 0, rounds = 0;
        EXPECT_EQ(bar.done().first, 0);
        for (int turn = 0; turn < 100; ++turn) {
            const int start = bar.done().first;
            ASSERT_GE(start, 0) << "something is always visible";
            rounds += start < last ? 1 : 0;
            farthest = std::max(farthest, last = start);
            QMetaObject::invokeMethod(step, "timeout");
        }
        EXPECT_GT(farthest, kLength * 9 / 10);
        EXPECT_EQ(rounds, 2);
        bar.showFull();
        EXPECT_EQ(bar.done(), std::pair(0, kLength));
        EXPECT_EQ(bar.value(), bar.maximum());
        EXPECT_FALSE(step->isActive());
        bar.setMaximum(maximum);
        EXPECT_TRUE(step->isActive());
        bar.hide();
        EXPECT_FALSE(step->isActive());
    }
}

} // namespace
} // namespace velmarin
