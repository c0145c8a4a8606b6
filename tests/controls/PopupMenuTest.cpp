#include "controls/PopupMenu.h"

#include "Ink.h"

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

struct PickCase {
    const char* name;
    std::function<void(PopupMenuTest&)> act;
    int row;
    int changes;
};

/// Row 1 is picked beforehand, in silence.
class Picks : public PopupMenuTest, public ::testing::WithParamInterface<PickCase> {};

TEST_P(Picks, AreMadeInTheListAlone) {
    menu.setListIndexQuietly(1);
    GetParam().act(*this);
    EXPECT_EQ(menu.ListIndex(), GetParam().row);
    EXPECT_EQ(changes.count(), GetParam().changes);
    if (isOpen())
        menu.hidePopup();
}

INSTANTIATE_TEST_SUITE_P(
    PopupMenu, Picks,
    ::testing::Values(PickCase{"Wheel", [](auto& t) { t.turnWheel(); }, 1, 0},
                      PickCase{"DownOnTheClosedControl", [](auto& t) { QTest::keyClick(&t.menu, Qt::Key_Down); }, 1, 0},
                      PickCase{"UpOnTheClosedControl", [](auto& t) { QTest::keyClick(&t.menu, Qt::Key_Up); }, 1, 0},
                      PickCase{"EndOnTheClosedControl", [](auto& t) { QTest::keyClick(&t.menu, Qt::Key_End); }, 1, 0},
                      PickCase{"PageUpOnTheClosedControl", [](auto& t) { QTest::keyClick(&t.menu, Qt::Key_PageUp); }, 1,
                               0},
                      PickCase{"LetterOnTheClosedControl", [](auto& t) { QTest::keyClick(&t.menu, 'e'); }, 1, 0},
                      PickCase{"LetterThenEnter",
                               [](auto& t) {
                                   QTest::keyClick(&t.menu, 'e');
                                   QTest::keyClick(t.menu.view(), Qt::Key_Return);
                               },
                               0, 1},
                      PickCase{"DownDownEnter",
                               [](auto& t) {
                                   QTest::keyClick(&t.menu, Qt::Key_Down);
                                   QTest::keyClick(t.menu.view(), Qt::Key_Down);
                                   QTest::keyClick(t.menu.view(), Qt::Key_Return);
                               },
                               2, 1},
                      PickCase{"CurrentRowAgainByEnter",
                               [](auto& t) {
                                   QTest::keyClick(&t.menu, Qt::Key_Space);
                                   QTest::keyClick(t.menu.view(), Qt::Key_Return);
                               },
                               1, 1},
                      PickCase{"DownDownEscape",
                               [](auto& t) {
                                   QTest::keyClick(&t.menu, Qt::Key_Down);
                                   QTest::keyClick(t.menu.view(), Qt::Key_Down);
                                   QTest::keyClick(t.menu.view(), Qt::Key_Escape);
                               },
                               1, 0},
                      PickCase{"Click",
                               [](auto& t) {
                                   t.menu.showPopup();
                                   t.clickRow(2);
                               },
                               2, 1},
                      PickCase{"ClickOnTheCurrentRow",
                               [](auto& t) {
                                   t.menu.showPopup();
                                   t.clickRow(1);
                               },
                               1, 1},
                      PickCase{"Code", [](auto& t) { t.menu.setListIndex(2); }, 2, 1},
                      PickCase{"CodeOnTheSameRow", [](auto& t) { t.menu.setListIndex(1); }, 1, 1},
                      PickCase{"CodeTakesItAway", [](auto& t) { t.menu.setListIndex(-1); }, -1, 1},
                      PickCase{"CodeBeyondTheRows", [](auto& t) { t.menu.setListIndex(3); }, -1, 1},
                      PickCase{"CodeQuietly", [](auto& t) { t.menu.setListIndexQuietly(0); }, 0, 0},
                      PickCase{"RowAdded", [](auto& t) { t.menu.AddRow("New"); }, 1, 0},
                      PickCase{"RowsDeletedAndAdded",
                               [](auto& t) {
                                   t.menu.DeleteAllRows();
                                   t.menu.AddRow("New");
                               },
                               -1, 0}),
    [](const auto& info) { return info.param.name; });

struct OpenCase {
    const char* name;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    bool opens;
};

class OpeningKeys : public PopupMenuTest, public ::testing::WithParamInterface<OpenCase> {};

TEST_P(OpeningKeys, OpenTheList) {
    QTest::keyClick(&menu, GetParam().key, GetParam().modifiers);
    EXPECT_EQ(isOpen(), GetParam().opens);
    menu.hidePopup();
}

INSTANTIATE_TEST_SUITE_P(PopupMenu, OpeningKeys,
                         ::testing::Values(OpenCase{"Down", Qt::Key_Down, {}, true},
                                           OpenCase{"Up", Qt::Key_Up, {}, true},
                                           OpenCase{"AltDown", Qt::Key_Down, Qt::AltModifier, true},
                                           OpenCase{"Space", Qt::Key_Space, {}, true},
                                           OpenCase{"F4", Qt::Key_F4, {}, true},
                                           OpenCase{"ReturnIsForTheDefaultButton", Qt::Key_Return, {}, false},
                                           OpenCase{"CommandsAreForTheMenuBar", Qt::Key_E, Qt::ControlModifier, false}),
                         [](const auto& info) { return info.param.name; });

TEST_F(PopupMenuTest, RowsKeepTheirTags) {
    EXPECT_EQ(menu.rowCount(), 3);
    EXPECT_EQ(menu.List(1), "Languages");
    EXPECT_EQ(std::any_cast<std::string>(menu.Tag(0)), "/english");
    EXPECT_EQ(std::any_cast<int>(menu.Tag(1)), 7);
    EXPECT_FALSE(menu.Tag(2).has_value());
    EXPECT_FALSE(menu.Tag(3).has_value());
    EXPECT_EQ(menu.List(-1), "");
}

TEST_F(PopupMenuTest, OwnerHearsOfThePressAndOfTheChoiceToComeBeforeTheListOpens) {
    std::string log;
    const auto note = [&](const char* word) { return [&log, this, word] { log += isOpen() ? "open " : word; }; };
    QObject::connect(&menu, &PopupMenu::MouseDown, &window, note("down "));
    QObject::connect(&menu, &PopupMenu::aboutToChoose, &window, note("about "));
    QTest::mousePress(&menu, Qt::LeftButton);
    EXPECT_EQ(log, "down about ");
    EXPECT_TRUE(isOpen());
    menu.hidePopup();
}

TEST_F(PopupMenuTest, PointerAndFocusComingInTellThatAChoiceMayCome) {
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

TEST_F(PopupMenuTest, RowsMadeAnewAsTheListOpensAreTheOnesShown) {
    QObject::connect(&menu, &PopupMenu::aboutToChoose, &window, [this] {
        menu.DeleteAllRows();
        menu.AddRow("Fresh");
    });
    menu.showPopup();
    ASSERT_TRUE(isOpen());
    clickRow(0);
    EXPECT_EQ(menu.List(menu.ListIndex()), "Fresh");
}

} // namespace
} // namespace velmarin
