#include "controls/BevelButton.h"

#include "Ink.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

using test::difference;
using test::painted;

TEST(BevelButton, MenuValueStaysWithinTheRowsAndCodeSetsItWithoutASignal) {
    using Button = BevelButton;
    const struct {
        const char* name;
        int before;
        void (*act)(Button&);
        int value;
        bool set;
    } cases[] = {
        {"the first row counts as set", 0, [](Button&) {}, 0, true},
        {"beyond the last", 4, [](Button&) {}, 3, true},
        {"negative", 2, [](Button& b) { b.setMenuValue(-1); }, 0, true},
        {"any value kept", 1, [](Button& b) { b.setKeepsAnyValue(true), b.setMenuValue(7), b.openMenu(); }, 7, true},
        {"rows deleted", 2, [](Button& b) { b.DeleteAllRows(); }, 0, false},
        {"no rows to set", 0, [](Button& b) { b.DeleteAllRows(), b.setMenuValue(3); }, 0, false},
        {"row added", 3, [](Button& b) { b.AddRow("e"); }, 3, true},
        {"row before it removed", 2, [](Button& b) { b.RemoveRow(0); }, 1, true},
        {"row behind it removed", 2, [](Button& b) { b.RemoveRow(3); }, 2, true},
        {"its row removed", 3, [](Button& b) { b.RemoveRow(3); }, 0, false},
        {"missing rows removed", 3, [](Button& b) { b.RemoveRow(4), b.RemoveRow(-1); }, 3, true},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        Button button("Page");
        QSignalSpy chosen(&button, &Button::rowChosen);
        button.setRows({"a", "b", "c", "d"});
        EXPECT_FALSE(button.menuValueSet());
        button.setMenuValue(row.before);
        row.act(button);
        EXPECT_EQ(button.MenuValue(), row.value);
        EXPECT_EQ(button.menuValueSet(), row.set);
        EXPECT_EQ(chosen.count(), 0);
    }
}

TEST(BevelButton, ShowsItsWholeCaptionReadablyAtAnyFont) {
    const std::tuple<const char*, QSize, bool, double> cases[] = {
        {"Image size", {96, 16}, true, 30}, {"Subwindow", {71, 28}, false, 7}, {"A && B", {70, 16}, false, 30}};
    for (const auto& [caption, size, menu, points] : cases) {
        SCOPED_TRACE(caption);
        BevelButton button(caption), blank;
        for (BevelButton* each : {&button, &blank}) {
            QFont font = each->font();
            font.setPointSizeF(points);
            each->setFont(font);
            each->setHasMenu(menu);
            each->resize(size);
        }
        EXPECT_EQ(button.shownText().toStdString(), caption);
        const QRect ink = difference(painted(button), painted(blank));
        EXPECT_TRUE(button.rect().adjusted(1, 1, -1, -1).contains(ink));
        EXPECT_GE(ink.height(), 6);
        EXPECT_LE(std::abs(ink.center().y() - button.rect().center().y()), 2);
    }
}

TEST(BevelButton, FrameIsWholeDevicePixelsWide) {
    for (const double scale : {1.0, 1.5, 2.0}) {
        BevelButton button;
        button.resize(70, 16);
        const QImage image = painted(button, scale);
        const auto grey = [&](int row) { return qGray(image.pixel(image.width() / 2, row)); };
        EXPECT_EQ(grey(qRound(scale) - 1), grey(0));
        EXPECT_GT(grey(qRound(scale)) - grey(0), 60) << "a blurred row at " << scale;
    }
}

TEST(BevelButton, KeysClicksAndScreenReadersPressAPlainButton) {
    BevelButton button("Next");
    QSignalSpy clicked(&button, &QAbstractButton::clicked);
    const auto press = [&] {
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
            QTest::keyClick(&button, key);
        QTest::mouseClick(&button, Qt::LeftButton);
        QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&button);
        heard->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    };
    press();
    EXPECT_EQ(clicked.count(), 5);
    button.setEnabled(false);
    press();
    EXPECT_EQ(clicked.count(), 5);
}

TEST(BevelButton, ToggleAndKeyboardFocusAreVisible) {
    BevelButton button("Subwindow");
    button.setToggle(true);
    button.resize(71, 28);
    button.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&button));
    button.clearFocus();
    const QImage out = painted(button);
    for (const bool checked : {true, false}) {
        QTest::mouseClick(&button, Qt::LeftButton);
        EXPECT_EQ(button.isChecked(), checked);
        EXPECT_EQ(difference(out, painted(button)).isNull(), !checked);
    }
    button.setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(difference(out, painted(button)).isNull());
}

TEST(BevelButton, ScreenReadersHearTheCaptionFirstAndTheRow) {
    BevelButton button("Page");
    QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&button);
    EXPECT_EQ(heard->role(), QAccessible::Button);
    button.setRows({"i", "ii"});
    EXPECT_EQ(heard->role(), QAccessible::ButtonMenu);
    EXPECT_EQ(heard->text(QAccessible::Value), "");
    button.setMenuValue(1);
    EXPECT_EQ(heard->text(QAccessible::Value), "ii");
    EXPECT_EQ(heard->text(QAccessible::Name), "Page");
    button.setShowsCurrentRow(true);
    EXPECT_EQ(heard->text(QAccessible::Name), "Page: ii");
    button.setAccessibleName("Jump to page");
    EXPECT_EQ(heard->text(QAccessible::Name), "Jump to page: ii");
    heard->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(button.menuIsOpen());
}

TEST(BevelButton, CutsARowInTheMiddleAndGivesItWholeInTheToolTip) {
    const std::string longRow = "webster_unabridged_1913_page_0123.tif";
    const std::tuple<std::string, const char*, std::string> cases[] = {
        {"p\xFF&1", "", ""},
        {longRow, "", longRow},
        {longRow, "Go to a page", longRow + "\nGo to a page"},
        {"p1", "taken:\rEnglish\r\nLatin & Greek", "taken:\nEnglish\nLatin & Greek"},
        {"p1", "<b>bold</b>", "<p>&lt;b&gt;bold&lt;/b&gt;</p>"}};
    for (const auto& [row, tip, toolTip] : cases) {
        BevelButton button("Page");
        button.resize(80, 16);
        button.setShowsCurrentRow(true);
        button.setRows({row});
        EXPECT_EQ(button.shownText(), "Page") << "no row is set yet";
        button.setMenuValue(0);
        button.setToolTip(tip);
        button.show();
        EXPECT_EQ(button.List(0), row) << "byte for byte";
        EXPECT_TRUE(button.shownText().startsWith(row[0]) && button.shownText().endsWith(row.back()));
        QToolTip::hideText();
        QHelpEvent rest(QEvent::ToolTip, {5, 5}, button.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&button, &rest);
        EXPECT_EQ(QToolTip::text().toStdString(), toolTip);
    }
}

} // namespace
} // namespace velmarin
