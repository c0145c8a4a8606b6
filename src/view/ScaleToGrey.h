#pragma once

#include "view/Axis.h"
#include "view/Picture.h"
#include "view/ScaledRows.h"

#include <memory>

namespace velmarin {

/// Reduces a 1-bit picture to grey by exact area, columns x0 to x1 - 1: counts ink with population counts over packed
/// words, and weights source pixels on the border of a result pixel by the part that it covers.
std::unique_ptr<ScaledRows> scaleToGrey(const Picture& source, const Axis& x, const Axis& y, int x0, int x1);

} // namespace velmarin
