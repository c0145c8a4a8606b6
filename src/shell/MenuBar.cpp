#include "shell/MenuBar.h"

#include "controls/QtText.h"
#include "shell/MenuTree.h"

#include <QAction>
#include <QMenu>

namespace velmarin {

namespace {

/// A menu reads "&" as the mark of a key; a name is shown as it is.
QString menuText(std::string_view text) {
    return toQ(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

QIcon iconOf(QPixmap (*draw)(QSize, qreal)) {
    QIcon icon;
    for (const qreal ratio : {1.0, 1.5, 2.0, 3.0})
        icon.addPixmap(draw(QSize(16, 16), ratio));
    return icon;
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
            if (item.name == kWinItem)
                windowMenu_ = menu;
            QAction* action = addItem(menu, item.name, item.index, item.caption, item.shortcut);
            action->setEnabled(hasHandler(item.name));
            if (item.icon != nullptr)
                action->setIcon(iconOf(item.icon));
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
        rows.append(addItem(windowMenu_, kWinItem, index, "", fromQ(windowShortcut(index))));
    }
    for (qsizetype i = 0; i < rows.size(); ++i)
        rows[i]->setText(menuText(captions[static_cast<std::size_t>(i)]));
}

} // namespace velmarin
