#include "Started.h"

#include "controls/BevelButton.h"
#include "controls/QtText.h"
#include "shell/Application.h"
#include "shell/MenuTree.h"
#include "shell/SideButton.h"
#include "side/SubWindow.h"
#include "side/TextArea.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QLineEdit>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTest>

#include <gtest/gtest.h>

namespace velmarin::test {
namespace {

/// A text of a menu without the mark of its letter.
QString shown(QString text) {
    return text.remove(QRegularExpression(QStringLiteral("&(?!&)")));
}

QAction* item(MainWindow& window, const QString& name, const QString& caption) {
    for (QAction* action : window.menuBar()->findChildren<QAction*>(name))
        if (shown(action->text()) == caption)
            return action;
    return nullptr;
}

TEST(Menus, AltAndALetterOpensEachMenuF10TheFirstAndTheFieldStaysAsItIs) {
    Started run({fruitGroup("G", 1)});
    run.pick("G");
    auto* field = run.control<QLineEdit>("SearchEF");
    field->setText("word");
    const auto opened = [] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        const QString title = menu == nullptr ? QString() : shown(menu->title());
        if (menu != nullptr)
            menu->close();
        return title;
    };
    const QString letters = QStringLiteral("FETIDSM");
    for (int i = 0; i < letters.size(); ++i) {
        run.key(static_cast<Qt::Key>(letters[i].unicode()), Qt::AltModifier);
        EXPECT_EQ(opened(), toQ(menuTree()[static_cast<std::size_t>(i)].caption));
    }
    run.key(Qt::Key_F10);
    EXPECT_EQ(opened(), "File");
    EXPECT_EQ(field->text(), "word");
}

TEST(Menus, EveryItemButTheWindowsHasALetterOfItsOwn) {
    Started run;
    run.start();
    for (const MenuPlan& plan : menuTree()) {
        QSet<QKeySequence> letters;
        for (const QAction* action : run.window().menuBar()->findChild<QMenu*>(toQ(plan.name))->actions()) {
            const QKeySequence letter = QKeySequence::mnemonic(action->text());
            if (action->isSeparator() || action->objectName() == "WinItem" || action->text() == "削除")
                continue;
            EXPECT_FALSE(letter.isEmpty() || letters.contains(letter)) << fromQ(action->text());
            letters.insert(letter);
        }
    }
}

TEST(Menus, EveryItemIsHandledAndHasAShortcutOfItsOwn) {
    Started run;
    run.start();
    QList<QKeySequence> seen;
    for (const MenuPlan& menu : menuTree())
        for (const MenuItemPlan& plan : menu.items) {
            EXPECT_TRUE(plan.caption == "-" || run.app().commands().after(run.window()).handles(plan.name))
                << plan.name;
            if (plan.shortcut.empty())
                continue;
            for (const QKeySequence& keys : QKeySequence::listFromString(toQ(plan.shortcut))) {
                EXPECT_FALSE(keys.isEmpty() || seen.contains(keys)) << plan.shortcut;
                seen << keys;
            }
        }
    item(run.window(), "SpecialCheckDictionaires", "Check Dictionaires")->trigger();
    EXPECT_EQ(run.host.messages, std::vector<std::string>{});
    item(run.window(), "SpecialOpenDictionaryFolder", "Open DictionaryFolder")->trigger();
    EXPECT_EQ(run.host.launched, std::vector<std::filesystem::path>{run.folder() / "DictionaryFolder"});
}

TEST(Menus, WindowRowsFollowTheirWindowsGroups) {
    Started run(
        {fruitGroup("One", 1).preferences("First\t0\t\n"), fruitGroup("Two", 1).preferences("Second & last\t0\t\n")});
    EXPECT_NE(item(run.window(), "WinItem", "Default Window"), nullptr);
    run.pick("One");
    EXPECT_NE(item(run.window(), "WinItem", "First"), nullptr);
    run.key(Qt::Key_N, Qt::ControlModifier);
    ASSERT_EQ(run.app().windows().MainWinList().size(), 2U);
    run.pick("Two", 1);
    for (int each : {0, 1}) {
        QAction* second = item(run.window(each), "WinItem", "Second & last");
        ASSERT_NE(second, nullptr);
        EXPECT_EQ(second->shortcut(), QKeySequence("Ctrl+1"));
    }
}

TEST(FailureMessages, NameATaskByItsCaptionOrNotAtAll) {
    Started run({fruitGroup("G", 1).preferences("R & D\t0\t\n")});
    run.pick("G");
    EXPECT_EQ(taskOf(item(run.window(), "SpecialInstall", "Install/Up date")), "Install/Up date");
    EXPECT_EQ(taskOf(item(run.window(), "WinItem", "R & D")), "R & D");
    EXPECT_EQ(taskOf(run.window().findChild<QMenu*>("TBpanel")), "Tab panel");
    EXPECT_EQ(taskOf(run.control<QWidget>("OKBT")), "OK");
    EXPECT_EQ(taskOf(run.control<QWidget>("SearchEF")), "") << "a field is not a task";
    auto* jump = run.control<BevelButton>("BVjump.0");
    jump->openMenu();
    EXPECT_EQ(taskOf(QApplication::activePopupWidget()->focusWidget()), "Page") << "a row of its menu";
    QApplication::activePopupWidget()->close();
}

TEST(Menus, EditItemsActOnTheFocusedField) {
    Started run({fruitGroup("G", 1)});
    auto* field = run.control<QLineEdit>("SearchEF");
    run.window().activateWindow();
    QApplication::setActiveWindow(&run.window());
    field->setFocus();
    field->setText("palimpsest");
    item(run.window(), "EditSelectAll", "SelectAll")->trigger();
    EXPECT_EQ(field->selectedText(), "palimpsest");
    item(run.window(), "EditClear", "削除")->trigger();
    EXPECT_EQ(field->text(), "");
    item(run.window(), "EditUndo", "Undo")->trigger();
    EXPECT_EQ(field->text(), "palimpsest");
}

/// Whether the pointer is over the menu bar while the focus goes from the side window to the main window.
class EditItems : public testing::TestWithParam<bool> {};

TEST_P(EditItems, ActOnTheSideWindowsTextIfAClickOnTheMenuBarTookItsFocus) {
    Started run({fruitGroup("G", 1)});
    run.click("SubWinBV");
    SubWindow& side = *run.window().parts().sideButton->pMySubWin();
    auto* field = run.control<QLineEdit>("SearchEF");
    field->setText("query");
    QApplication::setActiveWindow(&side);
    side.EF()->setPlainText("answer");
    side.EF()->setFocus();
    const QMenuBar& menus = *run.window().menuBar();
    QCursor::setPos(GetParam() ? menus.mapToGlobal(menus.rect().center()) : QPoint(0, 0));
    QApplication::setActiveWindow(&run.window());
    ASSERT_EQ(QApplication::focusWidget(), field);

    item(run.window(), "EditSelectAll", "SelectAll")->trigger();
    EXPECT_EQ(side.EF()->textCursor().hasSelection(), GetParam());
    EXPECT_EQ(field->hasSelectedText(), !GetParam());
    QTest::keyClick(field, Qt::Key_End);
    item(run.window(), "EditSelectAll", "SelectAll")->trigger();
    EXPECT_TRUE(field->hasSelectedText()) << "a key ends it";
}

INSTANTIATE_TEST_SUITE_P(Pointer, EditItems, testing::Bool());

} // namespace
} // namespace velmarin::test
