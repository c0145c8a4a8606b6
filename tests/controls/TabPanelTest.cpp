#include "controls/TabPanel.h"
#include "controls/SmallTabBar.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

struct TabPanelTest : ::testing::Test {
    TabPanel panel;
    SmallTabBar* bar = panel.findChild<SmallTabBar*>();

    void SetUp() override { panel.resize(808, 765); }
    void fill(int count) {
        for (int i = 0; i < count; ++i)
            panel.insertPanel(i, "A Dictionary of the English Language, volume " + std::to_string(i + 1));
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

TEST(TabPanelFront, StaysWithItsPage) {
    using Panel = TabPanel;
    const struct {
        const char* name;
        void (*act)(Panel&);
        std::string front;
        int changes;
    } cases[] = {
        {"set", [](Panel& p) { p.setValue(0); }, "a", 1},
        {"set to itself", [](Panel& p) { p.setValue(2); }, "c", 0},
        {"set beyond", [](Panel& p) { p.setValue(4); }, "c", 0},
        {"set negative", [](Panel& p) { p.setValue(-1); }, "c", 0},
        {"inserted before", [](Panel& p) { p.insertPanel(0, "x"); }, "c", 0},
        {"inserted beyond the end", [](Panel& p) { p.insertPanel(99, "x"); }, "c", 0},
        {"removed before", [](Panel& p) { p.removePanel(0); }, "c", 0},
        {"removed behind", [](Panel& p) { p.removePanel(3); }, "c", 0},
        {"removed itself", [](Panel& p) { p.removePanel(2); }, "d", 1},
        {"removed a missing one", [](Panel& p) { p.removePanel(4); }, "c", 0},
        {"renamed", [](Panel& p) { p.setCaption(2, "C & c"); }, "C & c", 0},
        {"last two removed", [](Panel& p) { p.removePanel(3), p.removePanel(2); }, "b", 1},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        Panel panel;
        for (const char* caption : {"a", "b", "c", "d"})
            panel.insertPanel(panel.PanelCount(), caption);
        panel.setValue(2);
        QSignalSpy changes(&panel, &Panel::Change);
        row.act(panel);
        EXPECT_EQ(panel.caption(panel.Value()), row.front);
        EXPECT_EQ(changes.count(), row.changes);
        for (int i = 0; i < panel.PanelCount(); ++i)
            EXPECT_EQ(panel.panel(i)->isVisibleTo(&panel), i == panel.Value()) << i;
    }
}

TEST_F(TabPanelTest, ClickBringsAPageToTheFrontAndARemovedPageDiesLater) {
    fill(4);
    show();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(2).center());
    const QPointer<QWidget> page = panel.panel(2);
    EXPECT_EQ(panel.Value(), 2);
    EXPECT_TRUE(page->isVisible());
    panel.removePanel(2);
    EXPECT_FALSE(page.isNull()) << "an event of it may be running";
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(page.isNull());
}

TEST_F(TabPanelTest, HiddenPagesFollowThePanelsSize) {
    fill(3);
    show();
    const QSize before = panel.panel(2)->size();
    for (const QSize& more : {QSize(100, 100), QSize(100, -755)}) {
        panel.resize(808 + more.width(), 765 + more.height());
        QCoreApplication::processEvents();
        EXPECT_EQ(panel.panel(2)->size(), (before + more).expandedTo({0, 0}));
    }
}

TEST_F(TabPanelTest, TwentyOneTabsCanEachBeBroughtIntoViewAndRead) {
    fill(21);
    show();
    for (const int tab : {20, 0, 10, 11, 9, 20, 19, 1}) {
        panel.setValue(tab);
        EXPECT_TRUE(room().contains(bar->tabRect(tab))) << "tab " << tab;
    }
    QSet<QString> captions;
    for (int tab = 0; tab < 21; ++tab)
        captions.insert(bar->shownCaption(tab));
    EXPECT_EQ(captions.size(), 21) << "long names that differ at their ends";
    panel.setValue(6);
    panel.resize(300, 765);
    QCoreApplication::processEvents();
    EXPECT_TRUE(room().contains(bar->tabRect(6))) << "after the panel shrinks";
}

} // namespace
} // namespace velmarin
