#include "controls/TabPanel.h"
#include "controls/SmallTabBar.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

TEST(TabPanel, FrontStaysWithItsPage) {
    using Panel = TabPanel;
    const struct {
        const char* name;
        void (*act)(Panel&);
        std::string front;
        int changes;
    } cases[] = {
        {"set", [](Panel& p) { p.setValue(0); }, "a", 1},
        {"set to itself", [](Panel& p) { p.setValue(2); }, "c", 0},
        {"set to missing ones", [](Panel& p) { p.setValue(4), p.setValue(-1); }, "c", 0},
        {"inserted before", [](Panel& p) { p.insertPanel(0, "x"); }, "c", 0},
        {"inserted beyond the end", [](Panel& p) { p.insertPanel(99, "x"), p.setValue(4); }, "x", 1},
        {"removed before", [](Panel& p) { p.removePanel(0); }, "c", 0},
        {"removed behind", [](Panel& p) { p.removePanel(3); }, "c", 0},
        {"removed itself", [](Panel& p) { p.removePanel(2); }, "d", 1},
        {"renamed", [](Panel& p) { p.setCaption(2, "C & c"); }, "C & c", 0},
        {"last two and missing ones removed", [](Panel& p) { p.removePanel(3), p.removePanel(2), p.removePanel(2); },
         "b", 1},
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

TEST(TabPanel, BringsEachOfManyTabsIntoViewReadablyAndResizesHiddenPages) {
    TabPanel panel;
    panel.resize(808, 765);
    for (int i = 0; i < 21; ++i)
        panel.insertPanel(i, "A Dictionary of the English Language, volume " + std::to_string(i + 1));
    panel.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel));
    auto* bar = panel.findChild<SmallTabBar*>();
    const auto inView = [&](int tab) {
        QRect free = bar->rect();
        for (const QToolButton* scroll : bar->findChildren<QToolButton*>())
            if (scroll->isVisible())
                free.setRight(std::min(free.right(), scroll->x() - 1));
        return free.contains(bar->tabRect(tab));
    };
    for (const int tab : {20, 0, 10, 11, 9, 20, 19, 6}) {
        panel.setValue(tab);
        EXPECT_TRUE(inView(tab)) << tab;
    }
    QSet<QString> captions;
    for (int tab = 0; tab < 21; ++tab)
        captions.insert(bar->shownCaption(tab));
    EXPECT_EQ(captions.size(), 21) << "long names that differ at their ends";
    const QSize before = panel.panel(2)->size();
    for (const QSize& more : {QSize(100, 100), QSize(-508, -755)}) {
        panel.resize(QSize(808, 765) + more);
        QCoreApplication::processEvents();
        EXPECT_EQ(panel.panel(2)->size(), (before + more).expandedTo({0, 0}));
        EXPECT_TRUE(inView(6));
    }
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(7).center());
    const QPointer<QWidget> page = panel.panel(7);
    EXPECT_TRUE(page->isVisible());
    panel.removePanel(7);
    EXPECT_FALSE(page.isNull()) << "an event of it may be running";
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(page.isNull());
}

} // namespace
} // namespace velmarin
