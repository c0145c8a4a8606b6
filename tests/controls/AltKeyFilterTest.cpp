#include "controls/AltKeyFilter.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTextEdit>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

TEST(AltKeyFilter, KeepsAltAndMetaFromTypingAndNothingElse) {
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        QString typed; ///< what the key alone would type
        QString then;  ///< the field's text, which was "word" with the cursor at its end
    } cases[] = {{Qt::Key_K, {}, "k", "wordk"},
                 {Qt::Key_K, Qt::AltModifier, "k", "word"},
                 {Qt::Key_K, Qt::MetaModifier, "k", "word"},
                 {Qt::Key_E, Qt::AltModifier | Qt::ControlModifier, "€", "word€"}, // AltGr
                 {Qt::Key_Backspace, {}, "\b", "wor"}};
    AltKeyFilter filter;
    qApp->installEventFilter(&filter);
    for (const auto& c : cases) {
        QLineEdit line("word");
        QTextEdit area("word");
        area.moveCursor(QTextCursor::End);
        QKeyEvent press(QEvent::KeyPress, c.key, c.modifiers, c.typed);
        QApplication::sendEvent(&line, &press);
        QApplication::sendEvent(&area, &press);
        EXPECT_EQ(line.text(), c.then) << c.modifiers;
        EXPECT_EQ(area.toPlainText(), c.then) << c.modifiers;
    }
}

} // namespace
} // namespace velmarin
