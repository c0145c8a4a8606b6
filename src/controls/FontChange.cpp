#include "controls/FontChange.h"

#include "controls/BevelButton.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFont>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextDocument>
#include <QTextEdit>

namespace velmarin {

namespace {

bool isOfOneFont(const QWidget* target) {
    return qobject_cast<const QComboBox*>(target) != nullptr ||
           qobject_cast<const QAbstractItemView*>(target) != nullptr ||
           qobject_cast<const QLineEdit*>(target) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(target) != nullptr || qobject_cast<const QLabel*>(target) != nullptr ||
           qobject_cast<const BevelButton*>(target) != nullptr;
}

void applyBase(QWidget* target, const FontChange& style) {
    QFont font = target->font();
    style.base(font);
    target->setFont(font);
}

} // namespace

void applyFontChange(QWidget* target, const FontChange& style, bool styled) {
    auto* text = qobject_cast<QTextEdit*>(target);
    if (text == nullptr) {
        if (isOfOneFont(target))
            applyBase(target, style);
        return;
    }
    const bool isField = text->document()->maximumBlockCount() == 1;
    if (!isField || !styled)
        applyBase(text, style);
    if (!isField && !text->textCursor().hasSelection())
        text->selectAll();
    if (!isField || styled)
        text->mergeCurrentCharFormat(style.selection);
}

} // namespace velmarin
