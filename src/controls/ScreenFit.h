#pragma once

#include <QList>
#include <QRect>
#include <QSize>

namespace velmarin {

/// A window's place on the desktop, in pixels: its top left corner with the frame, as `QWidget::pos` gives it, and its
/// size without the frame, as `QWidget::resize` takes it. The size of the frame is assumed, because it is unknown
/// before the window is shown.
using WindowPlace = QRect;

/// The first place of a window: size `wanted`, reduced to the screen, and centered together with a window of width
/// `besideIt` at its right. If there is no room for both, at the left edge.
WindowPlace firstPlace(const QSize& wanted, int besideIt, const QRect& screen);

/// The part of each screen that windows may cover.
QList<QRect> screenAreas();

/// `place` itself if the mouse can drag the window by its title bar on one of the screens. Otherwise moved to the
/// nearest screen, just far enough to show the whole window, and reduced to the screen.
WindowPlace withinReach(const WindowPlace& place, const QList<QRect>& screens);

} // namespace velmarin
