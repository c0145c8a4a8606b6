#pragma once

#include <string>

namespace velmarin {

/// A name for a temporary folder, unique enough within a month: day, hour, minute and second, two digits each, then the
/// last digits of the microseconds since start.
std::string mDataMod_MakeDateName();

/// "True" or "False".
std::string mDataMod_ConvertBooleanToString(bool b);
/// "1" or "0".
std::string mDataMod_ConvertBooleanTo1or0(bool b);

} // namespace velmarin
