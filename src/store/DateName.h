#pragma once

#include <string>

namespace velmarin {

/// A name for a temporary folder, unique enough within a month: day, hour, minute and second, two digits each, then the
/// last digits of the microseconds since start.
std::string mDataMod_MakeDateName();

} // namespace velmarin
