#pragma once

#include <string>

namespace velmarin {

/// "True" or "False".
std::string mDataMod_ConvertBooleanToString(bool b);
/// "1" or "0".
std::string mDataMod_ConvertBooleanTo1or0(bool b);

} // namespace velmarin
