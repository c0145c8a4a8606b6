#pragma once

#include "draft/SlotRun.h"

#include <optional>
#include <string>

namespace velmarin {

/// A reading that becomes one within `bounds` if letters that recognizers usually confuse are exchanged at one place,
/// with the letters exchanged. nullopt if there is none.
std::optional<std::string> confusedReading(const SlotReading& reading, const SlotBounds& bounds);

} // namespace velmarin
