#pragma once

#include "view/Picture.h"

namespace velmarin {

/// Where a picture of two pages side by side is to be cut: the column between them, near the middle. It is the dark
/// line of a fold that runs from top to bottom, or the middle of the widest white band; both may lean by two degrees,
/// as in a crooked scan. `picture` is not nil.
int gutterColumn(const Picture& picture);

/// Whether a picture can show two pages side by side: it is not higher than wide.
bool mayBeSpread(const Picture& picture);

} // namespace velmarin
