#include "shell/EditCommands.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTextEdit>

namespace velmarin {

namespace {

bool isOfMenus(const QObject* object) {
    return qobject_cast<const QMenuBar*>(object) != nullptr || qobject_cast<const QMenu*>(object) != nullptr;
}

} // namespace

EditCommands::EditCommands() {
    connect(qApp, &QApplication::focusChanged, this, &EditCommands::focusChanged);
    qApp->installEventFilter(this);
}

void EditCommands::EditUndo_Action(int) {
    apply(&QLineEdit::undo, &QTextEdit::undo);
}

void EditCommands::EditCut_Action(int) {
    apply(&QLineEdit::cut, &QTextEdit::cut);
}

void EditCommands::EditCopy_Action(int) {
    apply(&QLineEdit::copy, &QTextEdit::copy);
}

void EditCommands::EditPaste_Action(int) {
    apply(&QLineEdit::paste, &QTextEdit::paste);
}

void EditCommands::EditClear_Action(int) {
    apply([](QLineEdit& field) { field.insert(QString()); },
          [](QTextEdit& text) { text.textCursor().removeSelectedText(); });
}

void EditCommands::EditSelectAll_Action(int) {
    apply(&QLineEdit::selectAll, &QTextEdit::selectAll);
}

void EditCommands::apply(const std::function<void(QLineEdit&)>& toField,
                         const std::function<void(QTextEdit&)>& toText) {
    QWidget* target = focusBeforeClick_.isNull() ? QApplication::focusWidget() : focusBeforeClick_.data();
    if (auto* field = qobject_cast<QLineEdit*>(target))
        toField(*field);
    else if (auto* text = qobject_cast<QTextEdit*>(target))
        toText(*text);
}

void EditCommands::focusChanged(QWidget* old, QWidget* now) {
    if (old != nullptr && !isOfMenus(old))
        lastFocus_ = old;
    // Between two windows no widget may have the focus for a moment, and an open menu has it for a while.
    if (now == nullptr || isOfMenus(now) || lastFocus_.isNull() || lastFocus_->window() == now->window())
        return;
    focusBeforeClick_ = isOfMenus(QApplication::widgetAt(QCursor::pos())) ? lastFocus_ : nullptr;
}

bool EditCommands::eventFilter(QObject* watched, QEvent* event) {
    const bool isInput = event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress;
    if (isInput && watched->isWidgetType() && !isOfMenus(watched))
        focusBeforeClick_.clear();
    return QObject::eventFilter(watched, event);
}

} // namespace velmarin
