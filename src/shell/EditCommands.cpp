#include "shell/EditCommands.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTextEdit>

#include <algorithm>
#include <array>

namespace velmarin {

namespace {

struct EditCommand {
    std::string_view name;
    void (*onLine)(QLineEdit&);
    void (*onText)(QTextEdit&);
};

const std::array<EditCommand, 6> kCommands{{
    {"EditUndo", [](QLineEdit& field) { field.undo(); }, [](QTextEdit& area) { area.undo(); }},
    {"EditCut", [](QLineEdit& field) { field.cut(); }, [](QTextEdit& area) { area.cut(); }},
    {"EditCopy", [](QLineEdit& field) { field.copy(); }, [](QTextEdit& area) { area.copy(); }},
    {"EditPaste", [](QLineEdit& field) { field.paste(); }, [](QTextEdit& area) { area.paste(); }},
    {"EditClear", [](QLineEdit& field) { field.insert(QString()); },
     [](QTextEdit& area) { area.textCursor().removeSelectedText(); }},
    {"EditSelectAll", [](QLineEdit& field) { field.selectAll(); }, [](QTextEdit& area) { area.selectAll(); }},
}};

const EditCommand* find(std::string_view name) {
    const auto* const found =
        std::find_if(kCommands.begin(), kCommands.end(), [name](const EditCommand& c) { return c.name == name; });
    return found == kCommands.end() ? nullptr : found;
}

bool isOfMenus(const QObject* object) {
    return qobject_cast<const QMenuBar*>(object) != nullptr || qobject_cast<const QMenu*>(object) != nullptr;
}

} // namespace

EditCommands::EditCommands() {
    connect(qApp, &QApplication::focusChanged, this, &EditCommands::focusChanged);
    qApp->installEventFilter(this);
}

bool EditCommands::handles(std::string_view name) {
    return find(name) != nullptr;
}

void EditCommands::run(std::string_view name) {
    const EditCommand* command = find(name);
    if (command == nullptr)
        return;
    QWidget* target = focusBeforeClick_.isNull() ? QApplication::focusWidget() : focusBeforeClick_.data();
    if (auto* field = qobject_cast<QLineEdit*>(target))
        command->onLine(*field);
    else if (auto* area = qobject_cast<QTextEdit*>(target))
        command->onText(*area);
}

void EditCommands::focusChanged(QWidget* old, QWidget* now) {
    if (old != nullptr && !isOfMenus(old))
        lastFocus_ = old;
    // Between two windows there may be a moment without any focus, and an open menu has it for a while.
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
