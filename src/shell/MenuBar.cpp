#include "shell/MenuBar.h"

#include "controls/QtText.h"
#include "shell/MenuTree.h"

#include <QAction>
#include <QMenu>

namespace velmarin {

namespace {

constexpr std::string_view kWindowItem = "WinItem";

/// A menu reads "&" as the mark of a key; a name is shown as it is.
QString menuText(std::string_view text) {
    return toQ(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

MenuBar::MenuBar(Router router, const std::function<bool(std::string_view)>& hasHandler, QWidget* parent)
    : QMenuBar(parent), router_(std::move(router)) {
    for (const MenuPlan& plan : menuTree()) {
        QMenu* menu = addMenu(menuText(plan.caption));
        menu->setObjectName(toQ(plan.name));
        menu->setToolTipsVisible(true);
        for (const MenuItemPlan& item : plan.items) {
            if (item.caption == "-") {
                menu->addSeparator();
                continue;
            }
            if (item.name == kWindowItem)
                windowMenu_ = menu;
            QAction* action = addItem(menu, item.name, item.index, item.caption, item.shortcut);
            action->setEnabled(hasHandler(item.name));
        }
    }
}

QAction* MenuBar::addItem(QMenu* menu, std::string_view name, int index, std::string_view caption,
                          std::string_view shortcut) {
    QAction* action = menu->addAction(menuText(caption));
    action->setObjectName(toQ(name));
    // The roles that some hosts give to captions such as "Quit" would move items out of their menus.
    action->setMenuRole(QAction::NoRole);
    if (!shortcut.empty())
        action->setShortcuts(QKeySequence::listFromString(toQ(shortcut)));
    connect(action, &QAction::triggered, this, [this, kept = std::string(name), index] { router_(kept, index); });
    actions_.insert(toQ(name), action);
    return action;
}

void MenuBar::setItemEnabled(std::string_view name, bool enabled) {
    for (QAction* action : actions_.values(toQ(name)))
        action->setEnabled(enabled);
}

void MenuBar::setWindowItems(const std::vector<std::string>& captions) {
    QList<QAction*> rows = windowMenu_->actions();
    while (rows.size() < static_cast<qsizetype>(captions.size())) {
        const int index = static_cast<int>(rows.size());
        const std::string shortcut = index < 10 ? "Ctrl+" + std::to_string(index) : std::string();
        rows.append(addItem(windowMenu_, kWindowItem, index, "", shortcut));
    }
    for (qsizetype i = 0; i < rows.size(); ++i)
        rows[i]->setText(menuText(captions[static_cast<std::size_t>(i)]));
}

} // namespace velmarin
