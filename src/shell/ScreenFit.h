#pragma once

#include <QList>
#include <QRect>
#include <QSize>

namespace velmarin {

/// A window's place on the desktop, in pixels: its top left corner with the frame, as `QWidget::pos` gives it, and its
/// size without the frame, as `QWidget::resize` takes it. The frame itself is not known before the window is shown;
/// what usual window managers add is assumed.
using WindowPlace = QRect;

/// The first place of a window: size `wanted`, reduced to the screen, and centred together with a window of width
/// `besideIt` at its right. If there is no room for both, at the left edge.
WindowPlace firstPlace(const QSize& wanted, int besideIt, const QRect& screen);

/// What of each screen a window may cover.
QList<QRect> screenAreas();

/// `place` as it is where a mouse can take hold of the title bar on one of the screens. Otherwise moved to the nearest
/// screen, by as little as shows the window whole, and made smaller where it must be.
WindowPlace withinReach(const WindowPlace& place, const QList<QRect>& screens);

} // namespace velmarin
