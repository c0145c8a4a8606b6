#pragma once

#include <QPalette>
#include <QRect>

class QPainter;

namespace velmarin {

struct BevelState {
    bool enabled, down, checked, hovered, focused;
};

/// Paints the frame and face of a bevel button.
void paintBevel(QPainter& painter, const QRect& rect, const QPalette& palette, const BevelState& state);

/// The width of the arrow that marks a menu button, in logical pixels.
inline constexpr int kMenuArrowWidth = 7;

/// Paints that arrow at the right of `room`.
void paintMenuArrow(QPainter& painter, const QRect& room, const QColor& color);

} // namespace velmarin
