#pragma once

namespace velmarin {

/// Lets screen readers see a menu's BevelButton as a button with a menu, with its current row as its value. Once is
/// enough; further calls do nothing.
void installBevelButtonAccessibility();

} // namespace velmarin
