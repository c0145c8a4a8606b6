#include "shell/MenuBar.h"

#include "platform/QtText.h"
#include "shell/MenuTree.h"

#include <QAction>
#include <QMenu>
#include <QShortcut>

#include <algorithm>
#include <set>

namespace velmarin {

namespace {

/// Escapes "&", by which a menu marks a letter.
QString menuText(std::string_view text) {
    return toQ(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

/// Marks a letter in each caption of a menu, by which the keyboard chooses it: the first that no earlier caption has.
class Mnemonics {
  public:
    QString mark(std::string_view caption) {
        const auto found = std::find_if(caption.begin(), caption.end(), [this](char c) {
            return isLetter(c) && taken_.insert(static_cast<char>(c | 0x20)).second;
        });
        const auto before = static_cast<std::size_t>(found - caption.begin());
        const QString mark = found == caption.end() ? QString() : QStringLiteral("&");
        return menuText(caption.substr(0, before)) + mark + menuText(caption.substr(before));
    }

  private:
    static bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

    std::set<char> taken_; ///< lower case
};

QIcon iconOf(QPixmap (*draw)(QSize, qreal)) {
    QIcon icon;
    for (const qreal ratio : {1.0, 1.5, 2.0, 3.0})
        icon.addPixmap(draw(QSize(16, 16), ratio));
    return icon;
}

} // namespace

MenuBar::MenuBar(Router router, const std::function<bool(std::string_view)>& hasHandler, QWidget* parent)
    : QMenuBar(parent), router_(std::move(router)) {
    Mnemonics ofMenus;
    for (const MenuPlan& plan : menuTree()) {
        QMenu* menu = addMenu(ofMenus.mark(plan.caption));
        menu->setObjectName(toQ(plan.name));
        menu->setToolTipsVisible(true);
        Mnemonics ofItems;
        for (const MenuItemPlan& item : plan.items) {
            if (item.caption == "-") {
                menu->addSeparator();
                continue;
            }
            if (item.name == kWinItem)
                windowMenu_ = menu;
            QAction* action = addItem(menu, item.name, item.index, ofItems.mark(item.caption), item.shortcut);
            action->setEnabled(hasHandler(item.name));
            if (item.icon != nullptr)
                action->setIcon(iconOf(item.icon));
        }
    }
    connect(new QShortcut(Qt::Key_F10, this), &QShortcut::activated, this,
            [this] { setActiveAction(actions().first()); });
}

QAction* MenuBar::addItem(QMenu* menu, std::string_view name, int index, const QString& text,
                          std::string_view shortcut) {
    QAction* action = menu->addAction(text);
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
        rows.append(addItem(windowMenu_, kWinItem, index, QString(), fromQ(windowShortcut(index))));
    }
    for (qsizetype i = 0; i < rows.size(); ++i)
        rows[i]->setText(menuText(captions[static_cast<std::size_t>(i)]));
}

} // namespace velmarin
