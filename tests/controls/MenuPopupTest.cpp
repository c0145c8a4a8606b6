#include "controls/MenuPopup.h"
#include "controls/BevelButton.h"
#include "controls/RowModel.h"

#include <QApplication>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <tuple>

namespace velmarin {
namespace {

std::vector<std::string> pages(int count) {
    std::vector<std::string> names;
    for (int i = 0; i < count; ++i)
        names.push_back("p" + std::to_string(i));
    return names;
}

/// A window with one menu button, and what a user does with it.
struct BevelMenu : ::testing::Test {
    QWidget window;
    BevelButton button{"Page", &window};
    QSignalSpy chosen{&button, &BevelButton::rowChosen};

    void SetUp() override {
        window.setGeometry(100, 100, 300, 100);
        button.setGeometry(10, 10, 80, 16);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    MenuPopup* popup() const { return qobject_cast<MenuPopup*>(QApplication::activePopupWidget()); }
    MenuList* list() const { return popup() != nullptr ? popup()->findChild<MenuList*>() : nullptr; }

    void press() { QTest::mousePress(&button, Qt::LeftButton); }
    QPoint placeOf(int row) const { return list()->visualRect(list()->model()->index(row, 0)).center(); }
    /// Moves the pointer to a row with the button down.
    void moveTo(int row) {
        const QPoint place = placeOf(row);
        QMouseEvent move(QEvent::MouseMove, place, list()->viewport()->mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                         {});
        QApplication::sendEvent(list()->viewport(), &move);
    }
    /// The release of the press that opened the menu, which goes to the menu by then.
    void releaseWherePressed() {
        const QPoint global = button.mapToGlobal(button.rect().center());
        const QPointF local = list()->viewport()->mapFromGlobal(global);
        QMouseEvent release(QEvent::MouseButtonRelease, local, global, Qt::LeftButton, Qt::NoButton, {});
        QApplication::sendEvent(list()->viewport(), &release);
    }
    void clickRow(int row) { QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, placeOf(row)); }
    std::optional<int> lastChosen() const {
        return chosen.isEmpty() ? std::nullopt : std::optional(chosen.last().first().toInt());
    }
};

TEST_F(BevelMenu, AClickOrADragToARowPicksIt) {
    button.setRows(pages(5));
    press();
    ASSERT_TRUE(button.menuIsOpen());
    releaseWherePressed();
    ASSERT_TRUE(button.menuIsOpen());
    clickRow(3);
    EXPECT_EQ(lastChosen(), 3);
    EXPECT_EQ(chosen.count(), 1);
    EXPECT_EQ(button.MenuValue(), 3);
    EXPECT_FALSE(button.menuIsOpen() || button.isDown());
    press();
    moveTo(2);
    EXPECT_EQ(list()->currentIndex().row(), 2) << "the row under the pointer is highlighted";
    QTest::mouseRelease(list()->viewport(), Qt::LeftButton, {}, placeOf(2));
    EXPECT_EQ(lastChosen(), 2) << "press, drag and release in one go";
}

TEST_F(BevelMenu, HandlerSeesTheNewValueAndAClosedMenuAndMayReplaceTheRows) {
    button.setRows(pages(5));
    button.setMenuValue(4);
    int seen = -1;
    QObject::connect(&button, &BevelButton::rowChosen, &window, [&] {
        seen = button.MenuValue();
        EXPECT_FALSE(button.menuIsOpen()) << "a handler may show a message or open another menu";
        button.setRows(pages(2));
    });
    button.openMenu();
    clickRow(4);
    QCoreApplication::processEvents();
    EXPECT_EQ(seen, 4) << "the current row can be picked again";
    EXPECT_EQ(button.rowCount(), 2);
    EXPECT_EQ(button.MenuValue(), 0);
}

TEST_F(BevelMenu, KeysReachEveryRow) {
    const struct {
        const char* name;
        std::vector<Qt::Key> keys;
        std::optional<int> chosen;
    } cases[] = {
        {"Space and Return pick the current row", {Qt::Key_Space, Qt::Key_Return}, 5},
        {"Down opens without moving", {Qt::Key_Down, Qt::Key_Return}, 5},
        {"Down", {Qt::Key_Space, Qt::Key_Down, Qt::Key_Return}, 6},
        {"Up passes over the separator",
         {Qt::Key_Space, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Return},
         0},
        {"End", {Qt::Key_Space, Qt::Key_End, Qt::Key_Return}, 201},
        {"typing searches", {Qt::Key_Space, Qt::Key_P, Qt::Key_1, Qt::Key_5, Qt::Key_0, Qt::Key_Return}, 152},
        {"Escape picks nothing", {Qt::Key_Space, Qt::Key_End, Qt::Key_Escape}, std::nullopt},
        {"Tab picks nothing", {Qt::Key_Space, Qt::Key_End, Qt::Key_Tab}, std::nullopt},
    };
    button.AddRow("Delete");
    button.AddSeparator();
    for (const std::string& page : pages(200))
        button.AddRow(page);
    button.openMenu();
    clickRow(1);
    EXPECT_TRUE(button.menuIsOpen()) << "a separator is not picked";
    popup()->close();
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        chosen.clear();
        button.setMenuValue(5);
        button.setFocus();
        for (const Qt::Key key : row.keys)
            QTest::keyClick(list() != nullptr ? static_cast<QWidget*>(list()) : &button, key);
        EXPECT_EQ(lastChosen(), row.chosen);
        EXPECT_FALSE(button.menuIsOpen());
    }
}

TEST_F(BevelMenu, APressElsewhereOrAChangeOfTheButtonClosesIt) {
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"press elsewhere", [&] { QTest::mousePress(popup(), Qt::LeftButton, {}, QPoint(-50, -40)); }},
        {"row added", [&] { button.AddRow("x"); }},
        {"row removed", [&] { button.RemoveRow(3); }},
        {"rows deleted", [&] { button.DeleteAllRows(); }},
        {"disabled", [&] { button.setEnabled(false); }},
        {"hidden", [&] { button.hide(); }},
    };
    for (const auto& [name, act] : cases) {
        SCOPED_TRACE(name);
        button.setRows(pages(50));
        button.setEnabled(true);
        button.openMenu();
        ASSERT_TRUE(button.menuIsOpen());
        act();
        EXPECT_FALSE(button.menuIsOpen() || button.isDown());
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(BevelMenu, NothingOpensWithoutRowsAndTheMenuDiesWithItsButton) {
    button.setHasMenu(true);
    press();
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_FALSE(button.menuIsOpen() || button.isDown());
    auto* doomed = new BevelButton("Page", &window);
    doomed->setRows(pages(5));
    doomed->openMenu();
    delete doomed;
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

/// Counts what a view asks for.
struct CountedRows : RowModel {
    mutable int asked = 0;
    QVariant data(const QModelIndex& index, int role) const override {
        asked += role == Qt::DisplayRole ? 1 : 0;
        return RowModel::data(index, role);
    }
};

TEST_F(BevelMenu, LongPageListOpensAtItsCurrentRowAndAsksForFewOfTheOthers) {
    CountedRows rows;
    rows.setRows(pages(200'000));
    auto* menu = new MenuPopup(&rows, 123'456, &button);
    menu->open();
    QCoreApplication::processEvents();
    const auto* view = menu->findChild<MenuList*>();
    const QRect current = view->visualRect(rows.index(123'456));
    EXPECT_TRUE(view->viewport()->rect().contains(current));
    EXPECT_EQ(view->currentIndex().row(), 123'456);
    EXPECT_NEAR(current.center().y(), view->viewport()->height() / 2.0, current.height() * 2);
    EXPECT_LT(rows.asked, 2'000);
    menu->close();
}

TEST_F(BevelMenu, OpensInsideTheScreenBesideTheButton) {
    // Where the window is on the screen in percent, rows, the width of the last row, and whether the menu is below.
    const std::tuple<QPoint, int, int, bool> cases[] = {
        {{10, 10}, 5000, 2, true}, {{10, 100}, 500, 2, false}, {{100, 10}, 4, 60, true}, {{10, 10}, 4, 4000, true}};
    const QRect screen = window.screen()->availableGeometry();
    for (const auto& [percent, rows, width, below] : cases) {
        SCOPED_TRACE(std::to_string(rows) + " rows, " + std::to_string(width) + " wide");
        window.move(screen.left() + percent.x() * (screen.width() - 100) / 100,
                    screen.top() + percent.y() * (screen.height() - 40) / 100);
        QCoreApplication::processEvents();
        auto names = pages(rows);
        names.back() = std::string(static_cast<std::size_t>(width), 'w');
        button.setRows(names);
        button.openMenu();
        const QRect place = popup()->geometry();
        const QRect onScreen(button.mapToGlobal(QPoint()), button.size());
        EXPECT_TRUE(screen.contains(place));
        EXPECT_FALSE(place.intersects(onScreen));
        EXPECT_EQ(place.top() > onScreen.top(), below);
        EXPECT_GE(place.width(), button.width());
        popup()->close();
    }
}

} // namespace
} // namespace velmarin
