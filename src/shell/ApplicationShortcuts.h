#pragma once

class QWidget;

namespace velmarin {

class App;

/// Gives a window without a menu bar the shortcuts of the commands that the application carries out: new window, quit,
/// the main windows by their digits. Those of tabs and pages stay with the main windows.
void addApplicationShortcuts(App& app, QWidget* window);

} // namespace velmarin
