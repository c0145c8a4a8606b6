#pragma once

#include "view/Axis.h"
#include "view/Picture.h"
#include "view/ScaledRows.h"

#include <memory>

namespace velmarin {

/// Reduces an 8-bit or 32-bit picture by exact area, columns x0 to x1 - 1: first down the columns, then along the row.
std::unique_ptr<ScaledRows> averageArea(const Picture& source, const Axis& x, const Axis& y, int x0, int x1);

} // namespace velmarin
