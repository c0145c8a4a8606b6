#include "Started.h"

#include "controls/BevelButton.h"
#include "platform/QtText.h"
#include "shell/Application.h"
#include "side/SubWindow.h"
#include "side/TextArea.h"

#include <QAction>
#include <QCursor>
#include <QMenuBar>
#include <QRegularExpression>

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
    Started run({fruitGroup("G", 1)});
    run.click("SubWinBV");
    QSet<QKeySequence> shortcuts;
    for (const QAction* menu : run.window().menuBar()->actions()) {
        QSet<QKeySequence> letters;
        for (const QAction* row : menu->menu()->actions()) {
            if (row->isSeparator())
                continue;
            SCOPED_TRACE(fromQ(row->text()));
            EXPECT_TRUE(row->isEnabled()) << "it has no handler";
            const QKeySequence letter = QKeySequence::mnemonic(row->text());
            EXPECT_EQ(letter.isEmpty(), row->objectName() == "WinItem" || row->text() == "削除");
            EXPECT_FALSE(letters.contains(letter));
            letters.insert(letter);
            for (const QKeySequence& keys : row->shortcuts()) {
                EXPECT_FALSE(keys.isEmpty() || shortcuts.contains(keys));
                shortcuts.insert(keys);
            }
        }
    }
    item(run.window(), "Check Dictionaires")->trigger();
    EXPECT_EQ(run.host.messages, std::vector<std::string>{});
    item(run.window(), "Open DictionaryFolder")->trigger();
    EXPECT_EQ(run.host.launched, std::vector<std::filesystem::path>{run.files.path() / "DictionaryFolder"});
}

TEST(Menus, AltAndALetterOpensEachMenuAndF10TheFirst) {
    Started run({fruitGroup("G", 1)});
    run.field().setText("word");
    QStringList opened;
    for (const auto key : {Qt::Key_F, Qt::Key_E, Qt::Key_T, Qt::Key_I, Qt::Key_D, Qt::Key_S, Qt::Key_M, Qt::Key_F10}) {
        run.key(key, key == Qt::Key_F10 ? Qt::NoModifier : Qt::AltModifier);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        opened << shown(menu->title());
        menu->close();
    }
    EXPECT_EQ(fromQ(opened.join(',')), "File,Edit,Tab panel,Image,Dictionary,Subwindow,Mainwindow,File");
    EXPECT_EQ(run.field().text(), "word");
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
    EXPECT_EQ(taskOf(&run.control<QWidget>("OKBT")), "OK");
    EXPECT_EQ(taskOf(&run.field()), "");
    run.button("BVjump.0").openMenu();
    EXPECT_EQ(taskOf(QApplication::activePopupWidget()->focusWidget()), "Page") << "a row of its menu";
    QApplication::activePopupWidget()->close();
}

TEST(EditItems, ActOnTheFocusedFieldOrOnThatBeforeAClickOnTheMenuBar) {
    Started run({fruitGroup("G", 1)});
    run.click("SubWinBV");
    auto* side = openWindow<SubWindow>();
    QLineEdit& field = run.field();
    field.setText("query");
    side->EF()->setPlainText("answer");
    const QMenuBar& menus = *run.window().menuBar();
    for (const bool onTheMenuBar : {true, false}) {
        QApplication::setActiveWindow(side);
        side->EF()->moveCursor(QTextCursor::End);
        side->EF()->setFocus();
        QCursor::setPos(onTheMenuBar ? menus.mapToGlobal(menus.rect().center()) : QPoint(0, 0));
        QApplication::setActiveWindow(&run.window());
        ASSERT_EQ(QApplication::focusWidget(), &field);
        field.deselect();
        item(run.window(), "SelectAll")->trigger();
        EXPECT_EQ(side->EF()->textCursor().hasSelection(), onTheMenuBar);
        EXPECT_EQ(field.hasSelectedText(), !onTheMenuBar);
        QTest::keyClick(&field, Qt::Key_End);
        item(run.window(), "SelectAll")->trigger();
        EXPECT_TRUE(field.hasSelectedText()) << "a key ends it";
    }
    item(run.window(), "削除")->trigger();
    EXPECT_EQ(field.text(), "");
    item(run.window(), "Undo")->trigger();
    EXPECT_EQ(field.text(), "query");
}

} // namespace
} // namespace velmarin::test
