#include "controls/PopupMenu.h"

#include <QAbstractItemView>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <functional>

namespace velmarin {
namespace {

struct PopupMenuTest : ::testing::Test {
    QWidget window;
    PopupMenu menu{&window};
    QSignalSpy changes{&menu, &PopupMenu::Change};
    QSignalSpy about{&menu, &PopupMenu::aboutToChoose};

    void SetUp() override {
        menu.setGeometry(11, 3, 160, 20);
        for (const char* row : {"English", "Languages", "Many"})
            menu.AddRow(row, std::string(row));
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        menu.setFocus();
    }
    bool isOpen() const { return menu.view()->isVisible(); }
    void clickRow(int row) {
        const QPoint place = menu.view()->visualRect(menu.model()->index(row, 0)).center();
        QTest::mouseMove(menu.view()->viewport(), place);
        QTest::mouseClick(menu.view()->viewport(), Qt::LeftButton, {}, place);
    }
};

TEST_F(PopupMenuTest, KeysOpenTheListAndOnlyTheListAndCodePick) {
    const auto key = [this](auto pressed) { QTest::keyClick(&menu, pressed); };
    const auto inList = [this](Qt::Key pressed) { QTest::keyClick(menu.view(), pressed); };
    const auto turnWheel = [this] {
        QWheelEvent turn({80, 10}, menu.mapToGlobal(QPointF(80, 10)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&menu, &turn);
    };
    const struct {
        const char* name;
        std::function<void()> act;
        int row, changes;
        bool open = false;
    } cases[] = {
        {"wheel", turnWheel, 1, 0},
        {"End on the closed control", [&] { key(Qt::Key_End); }, 1, 0},
        {"Return, for the default button", [&] { key(Qt::Key_Return); }, 1, 0},
        {"Ctrl and a letter, for the menus", [&] { QTest::keyClick(&menu, Qt::Key_E, Qt::ControlModifier); }, 1, 0},
        {"Alt and Down", [&] { QTest::keyClick(&menu, Qt::Key_Down, Qt::AltModifier); }, 1, 0, true},
        {"Up", [&] { key(Qt::Key_Up); }, 1, 0, true},
        {"Space", [&] { key(Qt::Key_Space); }, 1, 0, true},
        {"F4", [&] { key(Qt::Key_F4); }, 1, 0, true},
        {"letter and Return", [&] { key('e'), inList(Qt::Key_Return); }, 0, 1},
        {"Down twice and Return", [&] { key(Qt::Key_Down), inList(Qt::Key_Down), inList(Qt::Key_Return); }, 2, 1},
        {"click", [&] { menu.showPopup(), clickRow(2); }, 2, 1},
        {"click on the current row", [&] { menu.showPopup(), clickRow(1); }, 1, 1},
        {"code on the same row", [&] { menu.setListIndex(1); }, 1, 1},
        {"code selects nothing", [&] { menu.setListIndex(-1); }, -1, 1},
        {"code beyond the rows", [&] { menu.setListIndex(3); }, -1, 1},
        {"code without a signal", [&] { menu.setListIndexQuietly(0); }, 0, 0},
        {"row added", [&] { menu.AddRow("New"); }, 1, 0},
        {"rows replaced", [&] { menu.DeleteAllRows(), menu.AddRow("New"); }, -1, 0},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        menu.setListIndexQuietly(1);
        changes.clear();
        row.act();
        EXPECT_EQ(menu.ListIndex(), row.row);
        EXPECT_EQ(changes.count(), row.changes);
        EXPECT_EQ(isOpen(), row.open);
        menu.hidePopup();
    }
}

TEST_F(PopupMenuTest, WhatMayLeadToAChoiceIsSignalledBeforeTheListOpens) {
    about.clear();
    QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
    QCoreApplication::sendEvent(&menu, &enter);
    EXPECT_EQ(about.count(), 1) << "the pointer comes";
    menu.clearFocus();
    menu.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(about.count(), 2) << "the focus comes";
    std::string log;
    QObject::connect(&menu, &PopupMenu::MouseDown, &window, [&] { log += isOpen() ? "open " : "down "; });
    QObject::connect(&menu, &PopupMenu::aboutToChoose, &window, [&] {
        log += isOpen() ? "open " : "about ";
        menu.DeleteAllRows();
        menu.AddRow("Fresh");
    });
    QTest::mousePress(&menu, Qt::LeftButton);
    EXPECT_EQ(log, "down about ");
    ASSERT_TRUE(isOpen());
    clickRow(0);
    EXPECT_EQ(menu.List(menu.ListIndex()), "Fresh") << "rows replaced as the list opens are shown";
    EXPECT_FALSE(menu.Tag(0).has_value() || menu.Tag(1).has_value());
    menu.AddRow("Latin", std::string("/latin"));
    EXPECT_EQ(std::any_cast<std::string>(menu.Tag(1)), "/latin");
}

} // namespace
} // namespace velmarin
