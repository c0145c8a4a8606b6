#pragma once

#include "view/Picture.h"

namespace velmarin {

/// Draws the rectangle sx, sy, sw, sh of `source` into `target`, scaled to x, y, w, h, and smoothed if
/// `target.AntiAlias`. What overruns either picture is clipped without changing the scale. `target` takes the depth
/// that the drawing needs. False, and nothing drawn, if memory fails. NilObjectException if either picture is nil.
bool DrawPicture(Picture& target, const Picture& source, int x, int y, int w, int h, int sx, int sy, int sw, int sh);

} // namespace velmarin
