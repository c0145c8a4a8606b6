#include "shell/ApplicationShortcuts.h"

#include "platform/QtText.h"
#include "shell/Commands.h"
#include "shell/MenuTree.h"

#include <QShortcut>
#include <QWidget>

#include <string>

namespace velmarin {

void addApplicationShortcuts(const Commands& application, QWidget* window) {
    const auto add = [&application, window](const QString& keys, std::string_view command, int index) {
        auto* shortcut = new QShortcut(QKeySequence(keys), window);
        QObject::connect(shortcut, &QShortcut::activated, window,
                         [application, command = std::string(command), index] { application.run(command, index); });
    };
    for (const MenuPlan& menu : menuTree())
        for (const MenuItemPlan& item : menu.items)
            if (!item.shortcut.empty() && application.handles(item.name) && item.name != kWinItem)
                add(toQ(item.shortcut), item.name, item.index);
    for (int digit = 0; digit < kWindowDigits; ++digit)
        add(windowShortcut(digit), kWinItem, digit);
}

} // namespace velmarin
