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

    void SetUp() override {
        window.setGeometry(100, 100, 400, 200);
        menu.setGeometry(11, 3, 160, 20);
        menu.AddRow("English", std::string("/english"));
        menu.AddRow("Languages", 7);
        menu.AddRow("Many");
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        menu.setFocus();
    }
    bool isOpen() const { return menu.view()->isVisible(); }
    void clickRow(int row) {
        menu.view()->scrollTo(menu.model()->index(row, 0));
        const QPoint place = menu.view()->visualRect(menu.model()->index(row, 0)).center();
        QTest::mouseMove(menu.view()->viewport(), place);
        QTest::mouseClick(menu.view()->viewport(), Qt::LeftButton, {}, place);
    }
    void turnWheel() {
        const QPointF middle(80, 10);
        QWheelEvent turn(middle, menu.mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&menu, &turn);
    }
};

TEST_F(PopupMenuTest, OnlyTheListAndCodePick) {
    const auto key = [this](auto pressed) { QTest::keyClick(&menu, pressed); };
    const auto inList = [this](Qt::Key pressed) { QTest::keyClick(menu.view(), pressed); };
    const struct {
        const char* name;
        std::function<void()> act;
        int row, changes;
    } cases[] = {
        {"wheel", [&] { turnWheel(); }, 1, 0},
        {"Down on the closed control", [&] { key(Qt::Key_Down); }, 1, 0},
        {"End on the closed control", [&] { key(Qt::Key_End); }, 1, 0},
        {"letter and Return", [&] { key('e'), inList(Qt::Key_Return); }, 0, 1},
        {"Down twice and Return", [&] { key(Qt::Key_Down), inList(Qt::Key_Down), inList(Qt::Key_Return); }, 2, 1},
        {"current row by Return", [&] { key(Qt::Key_Space), inList(Qt::Key_Return); }, 1, 1},
        {"Escape", [&] { key(Qt::Key_Down), inList(Qt::Key_Down), inList(Qt::Key_Escape); }, 1, 0},
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
        menu.hidePopup();
    }
}

TEST_F(PopupMenuTest, OpeningKeysOpenTheList) {
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        bool opens;
    } cases[] = {{Qt::Key_Up, {}, true},
                 {Qt::Key_Down, Qt::AltModifier, true},
                 {Qt::Key_Space, {}, true},
                 {Qt::Key_F4, {}, true},
                 {Qt::Key_Return, {}, false},              ///< for the default button
                 {Qt::Key_E, Qt::ControlModifier, false}}; ///< for the menu bar
    for (const auto& row : cases) {
        QTest::keyClick(&menu, row.key, row.modifiers);
        EXPECT_EQ(isOpen(), row.opens) << row.key;
        menu.hidePopup();
    }
}

TEST_F(PopupMenuTest, PressAndComingChoiceAreSignalledBeforeTheListOpens) {
    std::string log;
    const auto note = [&](const char* word) { return [&log, this, word] { log += isOpen() ? "open " : word; }; };
    QObject::connect(&menu, &PopupMenu::MouseDown, &window, note("down "));
    QObject::connect(&menu, &PopupMenu::aboutToChoose, &window, note("about "));
    QTest::mousePress(&menu, Qt::LeftButton);
    EXPECT_EQ(log, "down about ");
    EXPECT_TRUE(isOpen());
    menu.hidePopup();
}

TEST_F(PopupMenuTest, PointerAndFocusSignalThatAChoiceMayCome) {
    QSignalSpy about(&menu, &PopupMenu::aboutToChoose);
    QSignalSpy entered(&menu, &PopupMenu::MouseEntered);
    QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
    QCoreApplication::sendEvent(&menu, &enter);
    EXPECT_EQ(entered.count(), 1);
    EXPECT_EQ(about.count(), 1);
    menu.clearFocus();
    menu.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(about.count(), 2);
}

TEST_F(PopupMenuTest, RowsReplacedAsTheListOpensAreShown) {
    QObject::connect(&menu, &PopupMenu::aboutToChoose, &window, [this] {
        menu.DeleteAllRows();
        menu.AddRow("Fresh");
    });
    menu.showPopup();
    ASSERT_TRUE(isOpen());
    clickRow(0);
    EXPECT_EQ(menu.List(0), "Fresh");
    EXPECT_FALSE(menu.Tag(0).has_value() || menu.Tag(1).has_value());
    menu.AddRow("Latin", std::string("/latin"));
    EXPECT_EQ(std::any_cast<std::string>(menu.Tag(1)), "/latin");
}

} // namespace
} // namespace velmarin
