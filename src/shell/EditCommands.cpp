#include "shell/EditCommands.h"

#include <QApplication>
#include <QLineEdit>
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

} // namespace

bool isEditCommand(std::string_view name) {
    return find(name) != nullptr;
}

void runEditCommand(std::string_view name) {
    const EditCommand* command = find(name);
    if (command == nullptr)
        return;
    if (auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget()))
        command->onLine(*field);
    else if (auto* area = qobject_cast<QTextEdit*>(QApplication::focusWidget()))
        command->onText(*area);
}

} // namespace velmarin
