#include "controls/AnchoredLayout.h"

#include <QResizeEvent>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

constexpr QSize design(838, 809);
const Anchors allEdges = Anchor::Left | Anchor::Top | Anchor::Right | Anchor::Bottom;

TEST(AnchoredRect, FollowsTheEdges) {
    const Anchors across = Anchor::Left | Anchor::Right;
    const struct {
        const char* name;
        QRect rect;
        Anchors anchors;
        QSize actual;
        QRect placed;
    } cases[] = {
        {"right moves", {679, 4, 39, 22}, Anchor::Top | Anchor::Right, {900, 500}, {741, 4, 39, 22}},
        {"left and right stretch", {257, 3, 295, 28}, across | Anchor::Top, {938, 809}, {257, 3, 395, 28}},
        {"top and bottom stretch", {828, -1, 12, 790}, allEdges ^ Anchor::Left, {848, 709}, {838, -1, 12, 690}},
        {"bottom moves", {11, 804, 803, 8}, across | Anchor::Bottom, {838, 909}, {11, 904, 803, 8}},
        {"no edge", {5, 6, 7, 8}, {}, {1000, 1000}, {5, 6, 7, 8}},
        {"no negative size", {18, 84, 796, 714}, allEdges, {64, 64}, {18, 84, 22, 0}},
    };
    for (const auto& row : cases)
        EXPECT_EQ(anchoredRect(row.rect, row.anchors, design, row.actual), row.placed) << row.name;
}

struct ResizeRecorder : QWidget {
    using QWidget::QWidget;
    QSize last;
    void resizeEvent(QResizeEvent* event) override { last = event->size(); }
};

TEST(AnchoredLayout, ResizesHiddenPagesAndWhatIsInThemAndForgetsDeletedWidgets) {
    QWidget window;
    window.resize(design);
    auto* layout = new AnchoredLayout(&window, design);
    layout->add(std::make_unique<QWidget>(&window).get(), {10, 10, 20, 20}, allEdges);
    auto* page = new QWidget(&window);
    page->hide();
    auto* inner = new AnchoredLayout(page, {808, 743});
    auto* canvas = new ResizeRecorder(page);
    inner->add(canvas, {7, 25, 796, 714}, allEdges);
    layout->add(page, {11, 59, 808, 743}, allEdges);
    EXPECT_EQ(canvas->last, QSize(796, 714)) << "before the window is shown";
    window.show();
    window.resize(938, 909);
    QCoreApplication::processEvents();
    EXPECT_EQ(canvas->last, QSize(896, 814));
    window.hide();
    window.resize(800, 809);
    layout->apply();
    EXPECT_EQ(canvas->geometry(), QRect(7, 25, 758, 714));
    layout->setRect(page, {11, 59, 800, 743});
    EXPECT_EQ(canvas->width(), 750);
    EXPECT_EQ(layout->rect(page), QRect(11, 59, 800, 743)) << "at the design size";
    EXPECT_TRUE(layout->rect(canvas).isNull()) << "it belongs to another layout";
}

} // namespace
} // namespace velmarin
