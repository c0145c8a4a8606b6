#include "Started.h"

#include "controls/BevelButton.h"
#include "platform/QtText.h"
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

/// The item of that caption; null if there is none.
QAction* item(MainWindow& window, const QString& caption) {
    for (QAction* action : window.menuBar()->findChildren<QAction*>())
        if (shown(action->text()) == caption && action->menu() == nullptr)
            return action;
    return nullptr;
}

TEST(Menus, EveryItemHasAHandlerALetterAndAShortcutOfItsOwn) {
    Started run;
    run.start();
    const Commands commands = run.app().commands().after(run.window());
    QSet<QKeySequence> shortcuts;
    for (const MenuPlan& menu : menuTree()) {
        const QList<QAction*> rows = run.window().menuBar()->findChild<QMenu*>(toQ(menu.name))->actions();
        QSet<QKeySequence> letters;
        for (std::size_t row = 0; row < menu.items.size(); ++row) {
            const MenuItemPlan& plan = menu.items[row];
            if (plan.caption == "-")
                continue;
            SCOPED_TRACE(plan.caption);
            EXPECT_TRUE(commands.handles(plan.name));
            const QKeySequence letter = QKeySequence::mnemonic(rows[static_cast<qsizetype>(row)]->text());
            const bool needsNone = plan.name == kWinItem || plan.caption == "削除";
            EXPECT_FALSE(letters.contains(letter) || letter.isEmpty() != needsNone);
            letters.insert(letter);
            for (const QKeySequence& keys : QKeySequence::listFromString(toQ(plan.shortcut))) {
                EXPECT_FALSE(shortcuts.contains(keys) || keys.isEmpty() != plan.shortcut.empty());
                if (!keys.isEmpty())
                    shortcuts.insert(keys);
            }
        }
    }
    item(run.window(), "Check Dictionaires")->trigger();
    EXPECT_EQ(run.host.messages, std::vector<std::string>{});
    item(run.window(), "Open DictionaryFolder")->trigger();
    EXPECT_EQ(run.host.launched, std::vector<std::filesystem::path>{run.folder() / "DictionaryFolder"});
}

TEST(Menus, AltAndALetterOpensEachMenuAndF10TheFirst) {
    Started run({fruitGroup("G", 1)});
    auto* field = run.control<QLineEdit>("SearchEF");
    field->setText("word");
    const std::vector<Qt::Key> letters{Qt::Key_F, Qt::Key_E, Qt::Key_T, Qt::Key_I, Qt::Key_D, Qt::Key_S, Qt::Key_M};
    for (std::size_t i = 0; i <= letters.size(); ++i) {
        const bool isF10 = i == letters.size();
        run.key(isF10 ? Qt::Key_F10 : letters[i], isF10 ? Qt::NoModifier : Qt::AltModifier);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr) << i;
        EXPECT_EQ(shown(menu->title()), toQ(menuTree()[isF10 ? 0 : i].caption));
        menu->close();
    }
    EXPECT_EQ(field->text(), "word");
}

TEST(Menus, WindowRowsFollowTheirWindowsGroups) {
    Started run(
        {fruitGroup("One", 1).preferences("First\t0\t\n"), fruitGroup("Two", 1).preferences("Second & last\t0\t\n")});
    EXPECT_NE(item(run.window(), "Default Window"), nullptr);
    run.pick("One");
    EXPECT_NE(item(run.window(), "First"), nullptr);
    run.key(Qt::Key_N, Qt::ControlModifier);
    ASSERT_EQ(run.app().windows().count(), 2);
    run.pick("Two", 1);
    for (int each : {0, 1}) {
        const QAction* second = item(run.window(each), "Second & last");
        ASSERT_NE(second, nullptr);
        EXPECT_EQ(second->shortcut(), QKeySequence("Ctrl+1"));
    }
    EXPECT_EQ(taskOf(item(run.window(), "Second & last")), "Second & last");
}

TEST(FailureMessages, NameATaskByItsCaptionOrNotAtAll) {
    Started run({fruitGroup("G", 1)});
    EXPECT_EQ(taskOf(item(run.window(), "Install/Up date")), "Install/Up date");
    EXPECT_EQ(taskOf(run.window().findChild<QMenu*>("TBpanel")), "Tab panel");
    EXPECT_EQ(taskOf(run.control<QWidget>("OKBT")), "OK");
    EXPECT_EQ(taskOf(run.control<QWidget>("SearchEF")), "");
    run.control<BevelButton>("BVjump.0")->openMenu();
    EXPECT_EQ(taskOf(QApplication::activePopupWidget()->focusWidget()), "Page") << "a row of its menu";
    QApplication::activePopupWidget()->close();
}

TEST(EditItems, ActOnTheFocusedFieldOrOnThatBeforeAClickOnTheMenuBar) {
    Started run({fruitGroup("G", 1)});
    run.click("SubWinBV");
    SubWindow& side = *run.window().parts().sideButton->pMySubWin();
    auto* field = run.control<QLineEdit>("SearchEF");
    field->setText("query");
    side.EF()->setPlainText("answer");
    const QMenuBar& menus = *run.window().menuBar();
    for (const bool onTheMenuBar : {true, false}) {
        QApplication::setActiveWindow(&side);
        side.EF()->moveCursor(QTextCursor::End);
        side.EF()->setFocus();
        QCursor::setPos(onTheMenuBar ? menus.mapToGlobal(menus.rect().center()) : QPoint(0, 0));
        QApplication::setActiveWindow(&run.window());
        ASSERT_EQ(QApplication::focusWidget(), field);
        field->deselect();
        item(run.window(), "SelectAll")->trigger();
        EXPECT_EQ(side.EF()->textCursor().hasSelection(), onTheMenuBar);
        EXPECT_EQ(field->hasSelectedText(), !onTheMenuBar);
        QTest::keyClick(field, Qt::Key_End);
        item(run.window(), "SelectAll")->trigger();
        EXPECT_TRUE(field->hasSelectedText()) << "a key ends it";
    }
    item(run.window(), "削除")->trigger();
    EXPECT_EQ(field->text(), "");
    item(run.window(), "Undo")->trigger();
    EXPECT_EQ(field->text(), "query");
}

} // namespace
} // namespace velmarin::test
