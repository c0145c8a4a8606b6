#include "controls/TextTarget.h"

#include "controls/BevelButton.h"
#include "controls/TextArea.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>

namespace velmarin {

namespace {

void applyToWhole(QWidget* target, const TextChange& change) {
    QFont font = target->font();
    if (change.family)
        font.setFamilies({*change.family});
    if (change.points)
        font.setPointSizeF(static_cast<qreal>(*change.points));
    target->setFont(font);
}

void applyToSelection(QTextEdit* target, const TextChange& change) {
    QTextCharFormat style;
    if (change.family)
        style.setFontFamilies({*change.family});
    if (change.points)
        style.setFontPointSize(static_cast<qreal>(*change.points));
    target->mergeCurrentCharFormat(style);
}

} // namespace

TextTarget textTargetOf(const QWidget* widget) {
    if (qobject_cast<const QComboBox*>(widget) != nullptr)
        return TextTarget::PopupMenu;
    if (qobject_cast<const QListView*>(widget) != nullptr)
        return TextTarget::Listbox;
    if (qobject_cast<const TextArea*>(widget) != nullptr)
        return TextTarget::TextArea;
    if (qobject_cast<const QTextEdit*>(widget) != nullptr)
        return TextTarget::EditField;
    if (qobject_cast<const QLineEdit*>(widget) != nullptr)
        return TextTarget::TextField;
    if (qobject_cast<const QPlainTextEdit*>(widget) != nullptr)
        return TextTarget::TextEdit;
    if (qobject_cast<const QLabel*>(widget) != nullptr)
        return TextTarget::StaticText;
    return qobject_cast<const BevelButton*>(widget) != nullptr ? TextTarget::BevelButton : TextTarget::None;
}

void applyTo(QWidget* target, const TextChange& change, bool styled) {
    switch (textTargetOf(target)) {
    case TextTarget::None:
        return;
    case TextTarget::EditField:
        if (styled)
            applyToSelection(static_cast<QTextEdit*>(target), change);
        else
            applyToWhole(target, change);
        return;
    case TextTarget::TextArea: {
        auto* area = static_cast<TextArea*>(target);
        applyToWhole(area, change);
        if (area->SelLength() == 0)
            area->selectAll();
        applyToSelection(area, change);
        return;
    }
    default:
        applyToWhole(target, change);
    }
}

} // namespace velmarin
