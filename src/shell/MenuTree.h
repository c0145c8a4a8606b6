#pragma once

#include <QPixmap>
#include <QSize>
#include <QString>

#include <string_view>
#include <vector>

namespace velmarin {

/// One row of a menu. `name` is what handlers are bound to; an item of a family passes `index` to its handler.
struct MenuItemPlan {
    std::string_view name;
    int index = 0;
    /// "-" makes a separator.
    std::string_view caption;
    /// In the host's terms ("Ctrl" for the command key, "Alt" for the option key); several stand between "; ", empty
    /// for none.
    std::string_view shortcut;
    /// Draws its picture; null for none.
    QPixmap (*icon)(QSize size, qreal devicePixelRatio) = nullptr;
};

struct MenuPlan {
    std::string_view name;
    std::string_view caption;
    std::vector<MenuItemPlan> items;
};

/// The caption of a window's row for as long as the window has no group.
inline constexpr std::string_view kWinItemWithoutGroup = "Default Window";

/// The rows that stand for main windows: the first ten are reached by Ctrl and the row's digit.
inline constexpr std::string_view kWinItem = "WinItem";
inline constexpr int kWindowDigits = 10;
inline QString windowShortcut(int row) {
    return row < kWindowDigits ? QStringLiteral("Ctrl+%1").arg(row) : QString();
}

/// The whole menu bar, `MenuBar1`, from left to right and top to bottom. The rows of `WinItem` grow at run time.
const std::vector<MenuPlan>& menuTree();

} // namespace velmarin
