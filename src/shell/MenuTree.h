#pragma once

#include <QPixmap>
#include <QSize>
#include <QString>

#include <span>
#include <string_view>

namespace velmarin {

/// A row of a menu. A row called `X` runs the slot `X_Action(index)`: see shell/Commands.h.
struct MenuItemPlan {
    std::string_view name;
    int index = 0;
    /// "-" makes a separator.
    std::string_view caption;
    /// As Qt writes them ("Ctrl" for the command key, "Alt" for the option key), separated by "; "; empty for none.
    std::string_view shortcut;
    /// Draws the icon; null for none.
    QPixmap (*icon)(QSize size, qreal devicePixelRatio) = nullptr;
};

struct MenuPlan {
    std::string_view name;
    std::string_view caption;
    std::span<const MenuItemPlan> items;
};

/// The caption of the row of a window without a group.
inline constexpr std::string_view kWinItemWithoutGroup = "Default Window";

/// The rows of main windows. Ctrl and a digit chooses one of the first ten.
inline constexpr std::string_view kWinItem = "WinItem";
inline constexpr int kWindowDigits = 10;
inline QString windowShortcut(int row) {
    return row < kWindowDigits ? QStringLiteral("Ctrl+%1").arg(row) : QString();
}

/// The whole menu bar, `MenuBar1`, from left to right and top to bottom. The rows of `WinItem` grow at run time.
std::span<const MenuPlan> menuTree();

} // namespace velmarin
