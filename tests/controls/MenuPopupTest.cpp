#include "controls/MenuPopup.h"
#include "controls/BevelButton.h"
#include "controls/RowModel.h"

#include <QApplication>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
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
    std::vector<int> chosen;

    void SetUp() override {
        QObject::connect(&button, &BevelButton::rowChosen, &window, [this](int row) { chosen.push_back(row); });
        window.setGeometry(100, 100, 300, 100);
        button.setGeometry(10, 10, 80, 16);
        button.setRows(pages(5));
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    MenuPopup* popup() const { return qobject_cast<MenuPopup*>(QApplication::activePopupWidget()); }
    MenuList* list() const { return popup() != nullptr ? popup()->findChild<MenuList*>() : nullptr; }
    QPoint placeOf(int row) const { return list()->visualRect(list()->model()->index(row, 0)).center(); }
    void clickRow(int row) { QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, placeOf(row)); }
};

TEST_F(BevelMenu, AClickOrADragPicksARowAndAHandlerSeesItInAClosedMenuAndMayReplaceTheRows) {
    button.setMenuValue(3);
    QObject::connect(&button, &BevelButton::rowChosen, &window, [&](int row) {
        EXPECT_EQ(button.MenuValue(), row);
        EXPECT_FALSE(button.menuIsOpen() || button.isDown());
        button.setRows(pages(3));
    });
    QTest::mousePress(&button, Qt::LeftButton);
    ASSERT_TRUE(button.menuIsOpen());
    const QPoint pressed = button.mapToGlobal(button.rect().center());
    QTest::mouseRelease(list()->viewport(), Qt::LeftButton, {}, list()->viewport()->mapFromGlobal(pressed));
    ASSERT_TRUE(button.menuIsOpen()) << "the release of the press that opened it picks nothing";
    clickRow(3);
    EXPECT_EQ(chosen, std::vector<int>{3}) << "the current row can be picked again";
    QTest::mousePress(&button, Qt::LeftButton);
    const QPoint place = placeOf(2);
    QMouseEvent move(QEvent::MouseMove, place, list()->viewport()->mapToGlobal(place), {}, Qt::LeftButton, {});
    QApplication::sendEvent(list()->viewport(), &move);
    EXPECT_EQ(list()->currentIndex().row(), 2) << "the row under the pointer is highlighted";
    QTest::mouseRelease(list()->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(chosen, (std::vector<int>{3, 2}));
}

TEST_F(BevelMenu, KeysReachEveryRow) {
    using Keys = std::vector<Qt::Key>;
    using Rows = std::vector<int>;
    const auto up = Qt::Key_Up, space = Qt::Key_Space, enter = Qt::Key_Return;
    const std::tuple<const char*, Keys, Rows> cases[] = {
        {"Space and Return pick the current row", {space, Qt::Key_Enter}, {5}},
        {"Down opens without moving", {Qt::Key_Down, enter}, {5}},
        {"Up passes over the separator", {Qt::Key_F4, up, up, up, up, enter}, {0}},
        {"typing searches", {enter, Qt::Key_P, Qt::Key_1, Qt::Key_5, Qt::Key_0, enter}, {152}},
        {"Escape picks nothing", {space, Qt::Key_End, Qt::Key_Escape}, {}},
        {"Tab picks nothing", {space, Qt::Key_End, Qt::Key_Tab}, {}},
    };
    button.setRows({"Delete"});
    button.AddSeparator();
    for (const std::string& page : pages(200))
        button.AddRow(page);
    button.openMenu();
    clickRow(1);
    EXPECT_TRUE(button.menuIsOpen()) << "a separator is not picked";
    popup()->close();
    for (const auto& [name, keys, picked] : cases) {
        SCOPED_TRACE(name);
        chosen.clear();
        button.setMenuValue(5);
        for (const Qt::Key key : keys)
            QTest::keyClick(list() != nullptr ? static_cast<QWidget*>(list()) : &button, key);
        EXPECT_EQ(chosen, picked);
        EXPECT_FALSE(button.menuIsOpen());
    }
}

TEST_F(BevelMenu, APressElsewhereOrAChangeOfTheButtonClosesItAndNothingOpensWithoutRows) {
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"press elsewhere", [&] { QTest::mousePress(popup(), Qt::LeftButton, {}, QPoint(-50, -40)); }},
        {"row added", [&] { button.AddRow("x"); }},
        {"row removed", [&] { button.RemoveRow(3); }},
        {"disabled", [&] { button.setEnabled(false); }},
        {"hidden", [&] { button.hide(); }},
        {"rows deleted", [&] { button.DeleteAllRows(); }},
    };
    for (const auto& [name, act] : cases) {
        SCOPED_TRACE(name);
        button.setEnabled(true);
        button.openMenu();
        ASSERT_TRUE(button.menuIsOpen());
        act();
        EXPECT_FALSE(button.menuIsOpen() || button.isDown());
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(chosen, std::vector<int>());
    QTest::mousePress(&button, Qt::LeftButton);
    EXPECT_FALSE(button.menuIsOpen() || button.isDown());
    auto doomed = std::make_unique<BevelButton>("Page", &window);
    doomed->setRows(pages(5));
    doomed->openMenu();
    doomed.reset();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "the menu dies with its button";
}

struct CountedRows : RowModel {
    mutable int asked = 0;
    QVariant data(const QModelIndex& index, int role) const override { return ++asked, RowModel::data(index, role); }
};

TEST_F(BevelMenu, LongPageListOpensAtItsCurrentRowAndAsksForFewOfTheOthers) {
    CountedRows rows;
    rows.setRows(pages(200'000));
    auto* menu = new MenuPopup(&rows, 123'456, &button);
    menu->open();
    QCoreApplication::processEvents();
    EXPECT_EQ(list()->currentIndex().row(), 123'456);
    EXPECT_NEAR(placeOf(123'456).y(), list()->viewport()->height() / 2, 40);
    EXPECT_LT(rows.asked, 4'000);
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
        button.setRows(pages(rows));
        button.AddRow(std::string(static_cast<std::size_t>(width), 'w'));
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
