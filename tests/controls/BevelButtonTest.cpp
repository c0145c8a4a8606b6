#include "controls/BevelButton.h"

#include "Ink.h"

#include <QAccessible>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>

namespace velmarin {
namespace {

using test::difference;
using test::painted;

struct ValueCase {
    const char* name;
    std::function<void(BevelButton&)> act;
    int value;
    bool set;
};

class MenuValues : public ::testing::TestWithParam<ValueCase> {};

TEST_P(MenuValues, StayWithinTheRows) {
    BevelButton button("Page");
    QSignalSpy chosen(&button, &BevelButton::rowChosen);
    button.setRows({"a", "b", "c", "d"});
    GetParam().act(button);
    EXPECT_EQ(button.MenuValue(), GetParam().value);
    EXPECT_EQ(button.menuValueSet(), GetParam().set);
    EXPECT_EQ(chosen.count(), 0) << "code chooses in silence";
}

INSTANTIATE_TEST_SUITE_P(BevelButton, MenuValues,
                         ::testing::Values(ValueCase{"NothingSetYet", [](auto&) {}, 0, false},
                                           ValueCase{"Within", [](auto& b) { b.setMenuValue(2); }, 2, true},
                                           ValueCase{"FirstRowCountsAsSet", [](auto& b) { b.setMenuValue(0); }, 0,
                                                     true},
                                           ValueCase{"BeyondTheLast", [](auto& b) { b.setMenuValue(4); }, 3, true},
                                           ValueCase{"Negative", [](auto& b) { b.setMenuValue(-1); }, 0, true},
                                           ValueCase{"AnyValueKept",
                                                     [](auto& b) {
                                                         b.setKeepsAnyValue(true);
                                                         b.setMenuValue(-1);
                                                         b.setMenuValue(7);
                                                         b.openMenu();
                                                     },
                                                     7, true},
                                           ValueCase{"RowsDeleted",
                                                     [](auto& b) {
                                                         b.setMenuValue(2);
                                                         b.DeleteAllRows();
                                                     },
                                                     0, false},
                                           ValueCase{"NewRows",
                                                     [](auto& b) {
                                                         b.setMenuValue(2);
                                                         b.setRows({"x", "y", "z"});
                                                     },
                                                     0, false},
                                           ValueCase{"NoRowsToSet",
                                                     [](auto& b) {
                                                         b.DeleteAllRows();
                                                         b.setMenuValue(3);
                                                     },
                                                     0, false},
                                           ValueCase{"MoreRowsKeepIt",
                                                     [](auto& b) {
                                                         b.setMenuValue(3);
                                                         b.AddRow("e");
                                                     },
                                                     3, true},
                                           ValueCase{"RowBeforeItRemoved",
                                                     [](auto& b) {
                                                         b.setMenuValue(2);
                                                         b.RemoveRow(0);
                                                     },
                                                     1, true},
                                           ValueCase{"RowBehindItRemoved",
                                                     [](auto& b) {
                                                         b.setMenuValue(2);
                                                         b.RemoveRow(3);
                                                     },
                                                     2, true},
                                           ValueCase{"ItsRowRemoved",
                                                     [](auto& b) {
                                                         b.setMenuValue(3);
                                                         b.RemoveRow(3);
                                                     },
                                                     0, false},
                                           ValueCase{"MissingRowRemoved",
                                                     [](auto& b) {
                                                         b.setMenuValue(3);
                                                         b.RemoveRow(4);
                                                         b.RemoveRow(-1);
                                                     },
                                                     3, true}),
                         [](const auto& info) { return info.param.name; });

TEST(BevelButton, RowsAreKeptByteForByte) {
    BevelButton button("History");
    button.AddRow("Delete");
    button.AddSeparator();
    button.AddRow("p\xFF&1.tif");
    EXPECT_EQ(button.rowCount(), 3);
    EXPECT_EQ(button.List(0), "Delete");
    EXPECT_EQ(button.List(1), "");
    EXPECT_EQ(button.List(2), "p\xFF&1.tif");
    EXPECT_EQ(button.List(3), "");
    EXPECT_EQ(button.List(-1), "");
}

TEST(BevelButton, ShowsItsCurrentRowOnlyOnceOneIsSetAndOnlyIfAskedTo) {
    BevelButton button("Page");
    button.resize(80, 16);
    button.setRows({"i", "ii"});
    button.setMenuValue(1);
    EXPECT_EQ(button.shownText(), "Page");
    button.setShowsCurrentRow(true);
    EXPECT_EQ(button.shownText(), "ii");
    button.DeleteAllRows();
    EXPECT_EQ(button.shownText(), "Page");
    button.setRows({"i", "ii"});
    EXPECT_EQ(button.shownText(), "Page");
    button.setMenuValue(0);
    EXPECT_EQ(button.shownText(), "i");
}

TEST(BevelButton, LongRowIsCutInItsMiddle) {
    BevelButton button("Page");
    button.resize(80, 16);
    button.setShowsCurrentRow(true);
    button.setRows({"webster_unabridged_1913_page_0123.tif"});
    button.setMenuValue(0);
    const QString shown = button.shownText();
    EXPECT_TRUE(shown.contains(QChar(0x2026))) << shown.toStdString();
    EXPECT_TRUE(shown.startsWith("web"));
    EXPECT_TRUE(shown.endsWith("tif") || shown.endsWith(".tif"));
}

struct LayoutButton {
    const char* caption;
    int width, height;
    bool menu;
};

void PrintTo(const LayoutButton& button, std::ostream* out) {
    *out << button.caption;
}

class LayoutButtons : public ::testing::TestWithParam<LayoutButton> {};

TEST_P(LayoutButtons, ShowTheirWholeCaptionReadablyAtAnyFont) {
    const LayoutButton& plan = GetParam();
    for (const double points : {7.0, 9.0, 12.0, 18.0, 30.0}) {
        BevelButton button(plan.caption);
        BevelButton blank;
        for (BevelButton* each : {&button, &blank}) {
            QFont font = each->font();
            font.setPointSizeF(points);
            each->setFont(font);
            each->setHasMenu(plan.menu);
            each->resize(plan.width, plan.height);
        }
        EXPECT_EQ(button.shownText().toStdString(), plan.caption) << points << " points";
        const QRect ink = difference(painted(button), painted(blank));
        EXPECT_TRUE(button.rect().adjusted(1, 1, -1, -1).contains(ink)) << points << " points";
        EXPECT_GE(ink.height(), 6) << points << " points";
        EXPECT_LE(std::abs(ink.center().y() - button.rect().center().y()), 2) << points << " points";
    }
}

INSTANTIATE_TEST_SUITE_P(BevelButton, LayoutButtons,
                         ::testing::Values(LayoutButton{"Back", 70, 16, false}, LayoutButton{"Page", 80, 16, true},
                                           LayoutButton{"History", 80, 16, true}, LayoutButton{"Errata", 80, 16, true},
                                           LayoutButton{"Image size", 96, 16, true},
                                           LayoutButton{"Subwindow", 71, 28, false}, LayoutButton{"Up", 27, 22, false},
                                           LayoutButton{"Back", 36, 22, false}, LayoutButton{"Down", 43, 22, false},
                                           LayoutButton{"Ratio", 54, 22, true},
                                           LayoutButton{"4 image(s) exist(s)", 163, 22, true},
                                           LayoutButton{"A && B", 70, 16, false}));

TEST(BevelButton, ClickLeavesTheTypingWhereItIs) {
    QWidget window;
    QLineEdit field(&window);
    BevelButton button("Next", &window);
    button.setGeometry(0, 50, 70, 16);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    field.setFocus();
    QSignalSpy clicked(&button, &QAbstractButton::clicked);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_TRUE(field.hasFocus());
    QTest::keyClick(&field, Qt::Key_Tab);
    EXPECT_TRUE(button.hasFocus());
}

TEST(BevelButton, KeysPressAPlainButton) {
    BevelButton button("Next");
    QSignalSpy clicked(&button, &QAbstractButton::clicked);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
        QTest::keyClick(&button, key);
    EXPECT_EQ(clicked.count(), 3);
    button.setEnabled(false);
    QTest::keyClick(&button, Qt::Key_Return);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 3);
}

TEST(BevelButton, ToggleStaysPressedInAndLooksIt) {
    BevelButton button("Subwindow");
    button.setToggle(true);
    button.resize(71, 28);
    const QImage out = painted(button);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(button.isChecked());
    EXPECT_FALSE(difference(out, painted(button)).isNull());
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_FALSE(button.isChecked());
    EXPECT_TRUE(difference(out, painted(button)).isNull());
}

TEST(BevelButton, KeyboardFocusIsSeen) {
    QWidget window;
    BevelButton button("Next", &window);
    button.resize(70, 16);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    button.clearFocus();
    const QImage without = painted(button);
    button.setFocus(Qt::TabFocusReason);
    const QImage with = painted(button);
    EXPECT_NE(without.pixelColor(35, 0), with.pixelColor(35, 0));
    EXPECT_EQ(with.pixelColor(35, 0), button.palette().color(QPalette::Highlight));
}

TEST(BevelButton, ScreenReadersHearNameKindAndRow) {
    BevelButton button("Page");
    button.setRows({"i", "ii"});
    QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&button);
    ASSERT_NE(heard, nullptr);
    EXPECT_EQ(heard->role(), QAccessible::ButtonMenu);
    EXPECT_EQ(heard->text(QAccessible::Name), "Page");
    EXPECT_EQ(heard->text(QAccessible::Value), "");
    button.setMenuValue(1);
    EXPECT_EQ(heard->text(QAccessible::Value), "ii");
    EXPECT_EQ(heard->text(QAccessible::Name), "Page");
    button.setShowsCurrentRow(true);
    EXPECT_EQ(heard->text(QAccessible::Name), "Page: ii") << "the caption first, though it is not seen";
    button.setAccessibleName("Jump to page");
    EXPECT_EQ(heard->text(QAccessible::Name), "Jump to page: ii");
    heard->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(button.menuIsOpen());

    BevelButton next("Next");
    QSignalSpy clicked(&next, &QAbstractButton::clicked);
    QAccessibleInterface* plain = QAccessible::queryAccessibleInterface(&next);
    EXPECT_EQ(plain->role(), QAccessible::Button);
    plain->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicked.count(), 1);
}

} // namespace
} // namespace velmarin
