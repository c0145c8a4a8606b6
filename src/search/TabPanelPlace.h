#pragma once

/// The size of a main window as it is designed, and the place of the tab panel in it, in pixels.
namespace velmarin::design {

inline constexpr int kWindowWidth = 838;
inline constexpr int kWindowHeight = 809;
inline constexpr int kTabPanelLeft = 11;
inline constexpr int kTabPanelTop = 37;
inline constexpr int kTabPanelWidth = 808;
inline constexpr int kTabPanelHeight = 765;

} // namespace velmarin::design
