#pragma once

#include "view/Axis.h"
#include "view/Picture.h"
#include "view/ScaledRows.h"

#include <memory>

namespace velmarin {

/// Enlarges or copies a picture of any depth, columns x0 to x1 - 1: bilinear between pixel centers if `smooth`,
/// otherwise the nearest pixel.
std::unique_ptr<ScaledRows> samplePixels(const Picture& source, const Axis& x, const Axis& y, int x0, int x1,
                                         bool smooth);

} // namespace velmarin
