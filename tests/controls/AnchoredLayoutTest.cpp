#include "controls/AnchoredLayout.h"

#include <QResizeEvent>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <memory>

namespace velmarin {
namespace {

constexpr QSize design(838, 809);
const Anchors allEdges = Anchor::Left | Anchor::Top | Anchor::Right | Anchor::Bottom;

struct PlaceCase {
    const char* name;
    QRect rect;
    Anchors anchors;
    QSize actual;
    QRect placed;
};

class AnchoredPlaces : public ::testing::TestWithParam<PlaceCase> {};

TEST_P(AnchoredPlaces, FollowTheEdges) {
    const PlaceCase& row = GetParam();
    EXPECT_EQ(anchoredRect(row.rect, row.anchors, design, row.actual), row.placed);
}

INSTANTIATE_TEST_SUITE_P(
    AnchoredLayout, AnchoredPlaces,
    ::testing::Values(
        PlaceCase{"NothingMovesAtTheDesignSize", {257, 3, 295, 28}, allEdges, design, {257, 3, 295, 28}},
        PlaceCase{"LeftTopStays", {11, 3, 160, 20}, Anchor::Left | Anchor::Top, {1000, 1000}, {11, 3, 160, 20}},
        PlaceCase{"RightMoves", {679, 4, 39, 22}, Anchor::Top | Anchor::Right, {900, 500}, {741, 4, 39, 22}},
        PlaceCase{"LeftRightStretches",
                  {257, 3, 295, 28},
                  Anchor::Left | Anchor::Top | Anchor::Right,
                  {938, 809},
                  {257, 3, 395, 28}},
        PlaceCase{"TopRightBottomMovesAndStretches",
                  {828, -1, 12, 790},
                  Anchor::Top | Anchor::Right | Anchor::Bottom,
                  {848, 709},
                  {838, -1, 12, 690}},
        PlaceCase{"BottomMovesDown",
                  {11, 804, 803, 8},
                  Anchor::Left | Anchor::Right | Anchor::Bottom,
                  {838, 909},
                  {11, 904, 803, 8}},
        PlaceCase{"NoEdgeStays", {5, 6, 7, 8}, {}, {1000, 1000}, {5, 6, 7, 8}},
        PlaceCase{"SmallestWindowLeavesNoNegativeSize", {18, 84, 796, 714}, allEdges, {64, 64}, {18, 84, 22, 0}},
        PlaceCase{"NoWindowAtAll", {257, 3, 295, 28}, allEdges, {0, 0}, {257, 3, 0, 0}}),
    [](const auto& info) { return info.param.name; });

/// Keeps the size that it was last told of.
struct SizeTold : QWidget {
    using QWidget::QWidget;
    QSize told;
    void resizeEvent(QResizeEvent* event) override { told = event->size(); }
};

struct AnchoredLayoutTest : ::testing::Test {
    QWidget window;
    AnchoredLayout* layout = new AnchoredLayout(&window, design);
    AnchoredLayoutTest() { window.resize(design); }
};

TEST_F(AnchoredLayoutTest, ChildStandsInItsPlaceBeforeTheWindowIsShown) {
    window.resize(938, 909);
    auto* child = new SizeTold(&window);
    layout->add(child, {18, 84, 796, 714}, allEdges);
    EXPECT_EQ(child->geometry(), QRect(18, 84, 896, 814));
    EXPECT_EQ(child->told, QSize(896, 814));
}

TEST_F(AnchoredLayoutTest, ChildFollowsTheWindow) {
    auto* child = new QWidget(&window);
    layout->add(child, {679, 4, 39, 22}, Anchor::Top | Anchor::Right);
    window.show();
    window.resize(900, 700);
    QCoreApplication::processEvents();
    EXPECT_EQ(child->geometry(), QRect(741, 4, 39, 22));
    window.hide();
    window.resize(800, 700);
    layout->apply();
    EXPECT_EQ(child->geometry(), QRect(641, 4, 39, 22));
}

TEST_F(AnchoredLayoutTest, LayoutWithinAHiddenPageFollowsToo) {
    auto* page = new QWidget(&window);
    page->hide();
    auto* inner = new AnchoredLayout(page, {808, 743});
    auto* canvas = new SizeTold(page);
    inner->add(canvas, {7, 25, 796, 714}, allEdges);
    layout->add(page, {11, 59, 808, 743}, allEdges);
    window.show();
    window.resize(938, 909);
    QCoreApplication::processEvents();
    EXPECT_EQ(canvas->told, QSize(896, 814));
    EXPECT_EQ(canvas->size(), QSize(896, 814));
}

TEST_F(AnchoredLayoutTest, ForgetsDeletedChildrenAndKnowsNoStrangers) {
    auto child = std::make_unique<QWidget>(&window);
    layout->add(child.get(), {10, 10, 20, 20}, allEdges);
    child.reset();
    window.resize(500, 500);
    layout->apply();
    QWidget stranger;
    const QRect before = stranger.geometry();
    layout->setRect(&stranger, {1, 2, 3, 4});
    EXPECT_EQ(stranger.geometry(), before);
    EXPECT_TRUE(layout->rect(&stranger).isNull());
}

} // namespace
} // namespace velmarin
