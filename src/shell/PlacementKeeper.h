#pragma once

#include "store/WindowPlacement.h"

#include <QSize>

#include <optional>

class QMainWindow;

namespace velmarin {

class PreferenceWriter;
struct ThisAppliModule;

/// Gives a main window its size and place at a start and at each pick of a group, and saves what the user makes of
/// them. What the program and the window manager do to a window that the user has not touched is not saved.
class PlacementKeeper {
  public:
    PlacementKeeper(QMainWindow& window, PreferenceWriter& preferences, const ThisAppliModule& module)
        : window_(window), preferences_(preferences), module_(module) {}

    /// Gives the window this size of its content, or as much of it as the screen has room for, and a place that leaves
    /// room for `besideIt` pixels at its right where the screen is as wide.
    void setFirstPlacement(const QSize& content, int besideIt);
    /// Gives the window the saved placement; nothing where none is saved. Values are not checked against the screen,
    /// unless the window would be out of reach there.
    void restore();
    /// To be called at every move and resize.
    void save();
    /// To be called as the window comes to the front: what follows is the user's doing.
    void cameToFront() { untouched_ = false; }

  private:
    QMainWindow& window_;
    PreferenceWriter& preferences_;
    const ThisAppliModule& module_;
    /// Nobody but the program and the window manager places the window: at a start until it comes to the front, and
    /// while a placement is restored.
    bool untouched_ = true;
    /// The placement that they gave it last.
    std::optional<WindowPlacement> given_;
};

} // namespace velmarin
