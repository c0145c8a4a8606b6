#include "controls/BevelButton.h"
#include "controls/MenuPopup.h"
#include "controls/RowModel.h"

#include <QApplication>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <optional>

namespace velmarin {
namespace {

std::vector<std::string> pages(int count) {
    std::vector<std::string> names;
    for (int i = 0; i < count; ++i)
        names.push_back("p" + std::to_string(i));
    return names;
}

/// A window with one menu button, and what a user's hands do to it.
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
    /// The pointer where it would be over a row, with the button down or up.
    void moveTo(int row, Qt::MouseButtons buttons) {
        const QPoint place = list()->visualRect(list()->model()->index(row, 0)).center();
        QMouseEvent move(QEvent::MouseMove, place, list()->viewport()->mapToGlobal(place), Qt::NoButton, buttons, {});
        QApplication::sendEvent(list()->viewport(), &move);
    }
    void releaseOn(int row) {
        const QPoint place = list()->visualRect(list()->model()->index(row, 0)).center();
        QTest::mouseRelease(list()->viewport(), Qt::LeftButton, {}, place);
    }
    /// The release of the press that opened the menu, which goes to the menu by then.
    void releaseWherePressed() {
        const QPoint global = button.mapToGlobal(button.rect().center());
        const QPointF local = list()->viewport()->mapFromGlobal(global);
        QMouseEvent release(QEvent::MouseButtonRelease, local, global, Qt::LeftButton, Qt::NoButton, {});
        QApplication::sendEvent(list()->viewport(), &release);
    }
    void clickRow(int row) {
        const QPoint place = list()->visualRect(list()->model()->index(row, 0)).center();
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, place);
    }
    std::optional<int> lastChosen() const {
        return chosen.isEmpty() ? std::nullopt : std::optional(chosen.last().first().toInt());
    }
};

TEST_F(BevelMenu, ClickOpensItAndAClickOnARowPicksIt) {
    button.setRows(pages(5));
    press();
    ASSERT_TRUE(button.menuIsOpen());
    releaseWherePressed();
    ASSERT_TRUE(button.menuIsOpen());
    clickRow(3);
    EXPECT_EQ(lastChosen(), 3);
    EXPECT_EQ(chosen.count(), 1);
    EXPECT_EQ(button.MenuValue(), 3);
    EXPECT_FALSE(button.menuIsOpen());
    EXPECT_FALSE(button.isDown());
}

TEST_F(BevelMenu, PressDragAndReleasePicksInOneGo) {
    button.setRows(pages(5));
    press();
    moveTo(2, Qt::LeftButton);
    EXPECT_EQ(list()->currentIndex().row(), 2) << "the row under the pointer is highlighted";
    releaseOn(2);
    EXPECT_EQ(lastChosen(), 2);
}

TEST_F(BevelMenu, CurrentRowCanBePickedAgain) {
    button.setRows(pages(5));
    button.setMenuValue(1);
    button.openMenu();
    clickRow(1);
    EXPECT_EQ(lastChosen(), 1);
}

TEST_F(BevelMenu, MenuValueIsTheRowWhenTheSignalComes) {
    button.setRows(pages(5));
    int seen = -1;
    bool open = true;
    QObject::connect(&button, &BevelButton::rowChosen, &window, [&] {
        seen = button.MenuValue();
        open = button.menuIsOpen();
    });
    button.openMenu();
    clickRow(4);
    EXPECT_EQ(seen, 4);
    EXPECT_FALSE(open) << "a handler may show a message or open another menu";
}

TEST_F(BevelMenu, HandlerMayReplaceTheRows) {
    button.setRows(pages(5));
    QObject::connect(&button, &BevelButton::rowChosen, &window, [&] { button.setRows(pages(2)); });
    button.openMenu();
    clickRow(4);
    QCoreApplication::processEvents();
    EXPECT_EQ(button.rowCount(), 2);
    EXPECT_EQ(button.MenuValue(), 0);
}

TEST_F(BevelMenu, SeparatorIsNotPicked) {
    button.AddRow("Delete");
    button.AddSeparator();
    button.AddRow("p1");
    button.openMenu();
    clickRow(1);
    EXPECT_TRUE(button.menuIsOpen());
    EXPECT_EQ(chosen.count(), 0);
}

struct KeyCase {
    const char* name;
    std::vector<Qt::Key> keys;
    std::optional<int> chosen;
};

/// Rows: 0 "Delete", 1 a separator, then p0 to p199 from row 2; the current row is 5.
class MenuKeys : public BevelMenu, public ::testing::WithParamInterface<KeyCase> {};

TEST_P(MenuKeys, ReachARow) {
    button.AddRow("Delete");
    button.AddSeparator();
    for (const std::string& page : pages(200))
        button.AddRow(page);
    button.setMenuValue(5);
    button.setFocus();
    for (const Qt::Key key : GetParam().keys) {
        QWidget* target = list() != nullptr ? static_cast<QWidget*>(list()) : &button;
        QTest::keyClick(target, key);
    }
    EXPECT_EQ(lastChosen(), GetParam().chosen);
    EXPECT_FALSE(button.menuIsOpen());
}

INSTANTIATE_TEST_SUITE_P(
    BevelButton, MenuKeys,
    ::testing::Values(
        KeyCase{"SpaceAndEnterPickTheCurrentRow", {Qt::Key_Space, Qt::Key_Return}, 5},
        KeyCase{"ReturnOpens", {Qt::Key_Return, Qt::Key_Enter}, 5},
        KeyCase{"DownOpensWithoutMoving", {Qt::Key_Down, Qt::Key_Return}, 5},
        KeyCase{"DownGoesToTheNext", {Qt::Key_Space, Qt::Key_Down, Qt::Key_Return}, 6},
        KeyCase{"UpGoesToTheOneBefore", {Qt::Key_Space, Qt::Key_Up, Qt::Key_Return}, 4},
        KeyCase{"UpPassesOverTheSeparator",
                {Qt::Key_Space, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Return},
                0},
        KeyCase{"HomeGoesToTheFirst", {Qt::Key_Space, Qt::Key_Home, Qt::Key_Return}, 0},
        KeyCase{"EndGoesToTheLast", {Qt::Key_Space, Qt::Key_End, Qt::Key_Return}, 201},
        KeyCase{"TypingSearches", {Qt::Key_Space, Qt::Key_P, Qt::Key_1, Qt::Key_5, Qt::Key_0, Qt::Key_Return}, 152},
        KeyCase{"EscapeLeavesAllAsItIs", {Qt::Key_Space, Qt::Key_End, Qt::Key_Escape}, std::nullopt},
        KeyCase{"TabLeavesAllAsItIs", {Qt::Key_Space, Qt::Key_End, Qt::Key_Tab}, std::nullopt}),
    [](const auto& info) { return info.param.name; });

TEST_F(BevelMenu, PressElsewhereClosesIt) {
    button.setRows(pages(5));
    button.openMenu();
    QTest::mousePress(popup(), Qt::LeftButton, {}, QPoint(-50, -40));
    EXPECT_FALSE(button.menuIsOpen());
    EXPECT_EQ(chosen.count(), 0);
    EXPECT_FALSE(button.isDown());
}

struct ClosingCase {
    const char* name;
    void (*act)(BevelButton&);
};

class MenuClosing : public BevelMenu, public ::testing::WithParamInterface<ClosingCase> {};

TEST_P(MenuClosing, FollowsWhatCodeDoesToTheButton) {
    button.setRows(pages(50));
    button.openMenu();
    ASSERT_TRUE(button.menuIsOpen());
    GetParam().act(button);
    EXPECT_FALSE(button.menuIsOpen());
    QCoreApplication::processEvents();
}

INSTANTIATE_TEST_SUITE_P(BevelButton, MenuClosing,
                         ::testing::Values(ClosingCase{"Disabled", [](BevelButton& b) { b.setEnabled(false); }},
                                           ClosingCase{"Hidden", [](BevelButton& b) { b.hide(); }},
                                           ClosingCase{"RowsDeleted", [](BevelButton& b) { b.DeleteAllRows(); }},
                                           ClosingCase{"RowAdded", [](BevelButton& b) { b.AddRow("x"); }},
                                           ClosingCase{"RowRemoved", [](BevelButton& b) { b.RemoveRow(3); }}),
                         [](const auto& info) { return info.param.name; });

TEST_F(BevelMenu, WithoutRowsNothingOpens) {
    button.setHasMenu(true);
    press();
    button.openMenu();
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_FALSE(button.menuIsOpen());
    EXPECT_FALSE(button.isDown());
}

TEST_F(BevelMenu, ButtonMayDieWithItsMenuOpen) {
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

struct PlaceCase {
    const char* name;
    QPoint window;
    int rows;
    std::string widest;
    bool below;
};

class MenuPlaces : public BevelMenu, public ::testing::WithParamInterface<PlaceCase> {};

TEST_P(MenuPlaces, AreInsideTheScreenBesideTheButton) {
    const QRect screen = window.screen()->availableGeometry();
    const PlaceCase& row = GetParam();
    window.move(screen.left() + row.window.x() * (screen.width() - 100) / 100,
                screen.top() + row.window.y() * (screen.height() - 40) / 100);
    QCoreApplication::processEvents();
    auto names = pages(row.rows);
    names.back() = row.widest;
    button.setRows(names);
    button.openMenu();
    const QRect place = popup()->geometry();
    const QRect onScreen(button.mapToGlobal(QPoint()), button.size());
    EXPECT_TRUE(screen.contains(place));
    EXPECT_FALSE(place.intersects(onScreen));
    EXPECT_EQ(place.top() > onScreen.top(), row.below);
    EXPECT_GE(place.width(), button.width());
    EXPECT_LE(place.width(), 520);
}

INSTANTIATE_TEST_SUITE_P(
    BevelButton, MenuPlaces,
    ::testing::Values(PlaceCase{"Short", {10, 10}, 3, "p2", true}, PlaceCase{"Long", {10, 10}, 5000, "p2", true},
                      PlaceCase{"AtTheBottomOpensUpward", {10, 100}, 500, "p2", false},
                      PlaceCase{"AtTheRightIsMovedIn", {100, 10}, 4, std::string(60, 'w'), true},
                      PlaceCase{"VeryWideRowsAreCapped", {10, 10}, 4, std::string(4000, 'w'), true}),
    [](const auto& info) { return info.param.name; });

} // namespace
} // namespace velmarin
