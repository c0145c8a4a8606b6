#include "controls/BevelButton.h"

#include "Ink.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

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
        {"negative", -1, [](Button&) {}, 0, true},
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

TEST(BevelButton, ShowsItsCurrentRowOnlyOnceOneIsSetAndOnlyIfAskedTo) {
    BevelButton button("Page");
    button.resize(80, 16);
    button.setRows({"i", "p\xFF&1.tif", "webster_unabridged_1913_page_0123.tif"});
    EXPECT_EQ(button.List(1), "p\xFF&1.tif") << "byte for byte";
    button.setMenuValue(0);
    EXPECT_EQ(button.shownText(), "Page");
    button.setShowsCurrentRow(true);
    EXPECT_EQ(button.shownText(), "i");
    button.setMenuValue(2);
    EXPECT_TRUE(button.shownText().startsWith("web") && button.shownText().endsWith("tif")) << "cut in the middle";
    EXPECT_TRUE(button.shownText().contains(QChar(0x2026)));
    button.setRows({"i"});
    EXPECT_EQ(button.shownText(), "Page");
}

TEST(BevelButton, ShowsItsWholeCaptionReadablyAtAnyFont) {
    const struct {
        const char* caption;
        QSize size;
        bool menu;
    } layouts[] = {{"Image size", {96, 16}, true}, {"Subwindow", {71, 28}, false}, {"A && B", {70, 16}, false}};
    for (const auto& layout : layouts)
        for (const double points : {7.0, 30.0}) {
            SCOPED_TRACE(std::string(layout.caption) + " at " + std::to_string(points));
            BevelButton button(layout.caption), blank;
            for (BevelButton* each : {&button, &blank}) {
                QFont font = each->font();
                font.setPointSizeF(points);
                each->setFont(font);
                each->setHasMenu(layout.menu);
                each->resize(layout.size);
            }
            EXPECT_EQ(button.shownText().toStdString(), layout.caption);
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

TEST(BevelButton, ToggleAndKeyboardFocusAreVisible) {
    QWidget window;
    BevelButton button("Subwindow", &window);
    button.setToggle(true);
    button.resize(71, 28);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    button.clearFocus();
    const QImage out = painted(button);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(button.isChecked());
    EXPECT_FALSE(difference(out, painted(button)).isNull());
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_FALSE(button.isChecked());
    EXPECT_TRUE(difference(out, painted(button)).isNull());
    button.setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(difference(out, painted(button)).isNull());
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
