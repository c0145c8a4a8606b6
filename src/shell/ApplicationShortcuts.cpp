#include "shell/ApplicationShortcuts.h"

#include "controls/QtText.h"
#include "shell/App.h"
#include "shell/EditCommands.h"
#include "shell/MainWindow.h"
#include "shell/MenuTree.h"

#include <QShortcut>

#include <string>

namespace velmarin {

void addApplicationShortcuts(App& app, QWidget* window) {
    const auto add = [&app, window](const QString& keys, const std::string& command, int index) {
        auto* shortcut = new QShortcut(QKeySequence(keys), window);
        QObject::connect(shortcut, &QShortcut::activated, &app, [&app, command, index] { app.handle(command, index); });
    };
    for (const MenuPlan& menu : menuTree())
        for (const MenuItemPlan& item : menu.items)
            if (!item.shortcut.empty() && app.handles(item.name) && !EditCommands::handles(item.name) &&
                item.name != kWinItem)
                add(toQ(item.shortcut), std::string(item.name), item.index);
    for (int digit = 0; digit < kWindowDigits; ++digit) {
        auto* shortcut = new QShortcut(QKeySequence(windowShortcut(digit)), window);
        QObject::connect(shortcut, &QShortcut::activated, &app, [&app, digit] {
            if (digit < static_cast<int>(app.MainWinList().size()))
                app.WinItem_Action(digit);
        });
    }
}

} // namespace velmarin
