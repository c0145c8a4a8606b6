#include "controls/TabPanel.h"
#include "controls/AnchoredLayout.h"
#include "controls/SmallTabBar.h"

#include "Ink.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <functional>

namespace velmarin {
namespace {

struct TabPanelTest : ::testing::Test {
    TabPanel panel;
    SmallTabBar* bar = panel.findChild<SmallTabBar*>();
    QSignalSpy changes{&panel, &TabPanel::Change};

    void SetUp() override { panel.resize(808, 765); }
    void fill(int count) {
        for (int i = 0; i < count; ++i)
            panel.insertPanel(i, "A Dictionary of the English Language, volume " + std::to_string(i + 1));
        changes.clear();
    }
    void show() {
        panel.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel));
    }
    /// The part of the bar that the scroll buttons leave free.
    QRect room() const {
        QRect free = bar->rect();
        for (const QToolButton* button : bar->findChildren<QToolButton*>())
            if (button->isVisible())
                free.setRight(std::min(free.right(), button->x() - 1));
        return free;
    }
};

struct FrontCase {
    const char* name;
    std::function<void(TabPanel&)> act;
    std::string front;
    int changes;
};

/// Panels a, b, c, d; c is in front.
class Fronts : public TabPanelTest, public ::testing::WithParamInterface<FrontCase> {};

TEST_P(Fronts, StayWithTheirPage) {
    for (const char* caption : {"a", "b", "c", "d"})
        panel.insertPanel(panel.PanelCount(), caption);
    panel.setValue(2);
    changes.clear();
    GetParam().act(panel);
    EXPECT_EQ(panel.caption(panel.Value()), GetParam().front);
    EXPECT_EQ(changes.count(), GetParam().changes);
    for (int i = 0; i < panel.PanelCount(); ++i)
        EXPECT_EQ(panel.panel(i)->isVisibleTo(&panel), i == panel.Value()) << i;
}

INSTANTIATE_TEST_SUITE_P(TabPanel, Fronts,
                         ::testing::Values(FrontCase{"Set", [](auto& p) { p.setValue(0); }, "a", 1},
                                           FrontCase{"SetToItself", [](auto& p) { p.setValue(2); }, "c", 0},
                                           FrontCase{"SetBeyond", [](auto& p) { p.setValue(4); }, "c", 0},
                                           FrontCase{"SetNegative", [](auto& p) { p.setValue(-1); }, "c", 0},
                                           FrontCase{"InsertedBefore", [](auto& p) { p.insertPanel(0, "x"); }, "c", 0},
                                           FrontCase{"InsertedBeyondTheEnd", [](auto& p) { p.insertPanel(99, "x"); },
                                                     "c", 0},
                                           FrontCase{"RemovedBefore", [](auto& p) { p.removePanel(0); }, "c", 0},
                                           FrontCase{"RemovedBehind", [](auto& p) { p.removePanel(3); }, "c", 0},
                                           FrontCase{"RemovedItself", [](auto& p) { p.removePanel(2); }, "d", 1},
                                           FrontCase{"RemovedAMissingOne", [](auto& p) { p.removePanel(4); }, "c", 0},
                                           FrontCase{"Renamed", [](auto& p) { p.setCaption(2, "C & c"); }, "C & c", 0},
                                           FrontCase{"AllButTheFirstRemovedFromTheLast",
                                                     [](auto& p) {
                                                         for (int i = 3; i > 0; --i)
                                                             p.removePanel(i);
                                                     },
                                                     "a", 2}),
                         [](const auto& info) { return info.param.name; });

TEST_F(TabPanelTest, RemovedPageDiesAfterTheEventThatRemovedIt) {
    fill(2);
    const QPointer<QWidget> page = panel.panel(1);
    panel.removePanel(1);
    EXPECT_FALSE(page.isNull());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(page.isNull());
}

TEST_F(TabPanelTest, ClickOnATabBringsItsPageToTheFront) {
    fill(4);
    show();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(2).center());
    EXPECT_EQ(panel.Value(), 2);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_TRUE(panel.panel(2)->isVisible());
    EXPECT_FALSE(panel.panel(0)->isVisible());
}

TEST_F(TabPanelTest, HiddenPagesFollowThePanelsSize) {
    fill(3);
    auto* inner = new AnchoredLayout(panel.panel(2), {808, 743});
    QWidget canvas(panel.panel(2));
    inner->add(&canvas, {7, 25, 796, 714}, Anchor::Left | Anchor::Top | Anchor::Right | Anchor::Bottom);
    EXPECT_EQ(panel.panel(2)->geometry(), QRect(0, 22, 808, 743));
    show();
    panel.resize(908, 865);
    QCoreApplication::processEvents();
    EXPECT_EQ(canvas.geometry(), QRect(7, 25, 896, 814));
    panel.resize(908, 10);
    QCoreApplication::processEvents();
    EXPECT_GE(panel.panel(2)->height(), 0);
}

TEST_F(TabPanelTest, TwentyOneTabsCanEachBeBroughtIntoViewAndRead) {
    fill(21);
    show();
    for (const int tab : {20, 0, 10, 11, 9, 20, 19, 1}) {
        panel.setValue(tab);
        const QRect place = bar->tabRect(tab);
        EXPECT_TRUE(room().contains(place)) << "tab " << tab;
        EXPECT_EQ(place.height(), 22);
    }
    QSet<QString> captions;
    for (int tab = 0; tab < 21; ++tab)
        captions.insert(bar->shownCaption(tab));
    EXPECT_EQ(captions.size(), 21) << "long names that differ at their ends";
}

TEST_F(TabPanelTest, CurrentTabStaysInViewWhenThePanelShrinks) {
    fill(21);
    panel.setValue(6);
    show();
    panel.resize(300, 765);
    QCoreApplication::processEvents();
    EXPECT_TRUE(room().contains(bar->tabRect(6)));
}

} // namespace
} // namespace velmarin
