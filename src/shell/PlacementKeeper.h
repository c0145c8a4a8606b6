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
    void cameToFront() { placedForUser_ = false; }

  private:
    QMainWindow& window_;
    PreferenceWriter& preferences_;
    /// True while moves are not the user's: until first activation, and during restore().
    bool placedForUser_ = true;
    /// The last placement given by the program or the window manager; empty once the user has moved the window.
    std::optional<WindowPlacement> placedAt_;
};

} // namespace velmarin
