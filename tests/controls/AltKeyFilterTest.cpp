#include "controls/AltKeyFilter.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTextEdit>

#include <gtest/gtest.h>

namespace velmarin {
namespace {

struct KeyCase {
    const char* name;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    const char* typed; ///< what the key alone would type
    const char* then;  ///< the field's text, which was "word" with the cursor at its end
};

TEST(AltKeyFilter, KeepsAltAndMetaFromTypingAndNothingElse) {
    AltKeyFilter filter;
    qApp->installEventFilter(&filter);
    for (const KeyCase& c :
         {KeyCase{"a letter", Qt::Key_K, {}, "k", "wordk"}, KeyCase{"Alt", Qt::Key_K, Qt::AltModifier, "k", "word"},
          KeyCase{"Alt and Shift", Qt::Key_K, Qt::AltModifier | Qt::ShiftModifier, "K", "word"},
          KeyCase{"Meta", Qt::Key_K, Qt::MetaModifier, "k", "word"},
          KeyCase{"AltGr", Qt::Key_E, Qt::AltModifier | Qt::ControlModifier, "€", "word€"},
          KeyCase{"Backspace", Qt::Key_Backspace, {}, "\b", "wor"}}) {
        SCOPED_TRACE(c.name);
        QLineEdit line(QStringLiteral("word"));
        QTextEdit area(QStringLiteral("word"));
        area.moveCursor(QTextCursor::End);
        for (QWidget* field : {static_cast<QWidget*>(&line), static_cast<QWidget*>(&area)}) {
            QKeyEvent press(QEvent::KeyPress, c.key, c.modifiers, QString::fromUtf8(c.typed));
            QApplication::sendEvent(field, &press);
        }
        EXPECT_EQ(line.text(), QString::fromUtf8(c.then));
        EXPECT_EQ(area.toPlainText(), QString::fromUtf8(c.then));
    }
}

} // namespace
} // namespace velmarin
