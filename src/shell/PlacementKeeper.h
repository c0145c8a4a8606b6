#pragma once

#include "store/WindowPlacement.h"

#include <QSize>

#include <optional>

class QMainWindow;

namespace velmarin {

class PreferenceWriter;

/// Places a main window at its start and at each pick of a group, and saves the placement that the user gives it. What
/// the program and the window manager do to a window before the user touches it is not saved.
class PlacementKeeper {
  public:
    PlacementKeeper(QMainWindow& window, PreferenceWriter& preferences) : window_(window), preferences_(preferences) {}

    /// Gives the window's content this size, reduced to the screen, and if the screen is wide enough a place that
    /// leaves `besideIt` pixels free at its right.
    void setFirstPlacement(const QSize& content, int besideIt);
    /// Gives the window the saved placement, moved only if its title bar could not be reached on any screen. Does
    /// nothing if none is saved.
    void restore();
    /// Call at every move and resize.
    void save();
    /// Call when the window comes to the front: from then on the user moves it.
    void cameToFront() { untouched_ = false; }

  private:
    QMainWindow& window_;
    PreferenceWriter& preferences_;
    /// Only the program and the window manager place the window: at a start until it comes to the front, and while a
    /// placement is restored.
    bool untouched_ = true;
    /// The last placement that they gave it; empty once the user has moved it.
    std::optional<WindowPlacement> placedAt_;
};

} // namespace velmarin
