#pragma once

class QWidget;

namespace velmarin {

class Commands;

/// Gives a window without a menu bar the shortcuts of the commands in `application`: new window, quit, the main windows
/// by their digits.
void addApplicationShortcuts(const Commands& application, QWidget* window);

} // namespace velmarin
