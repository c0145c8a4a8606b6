#include "store/BooleanText.h"

namespace velmarin {

std::string mDataMod_ConvertBooleanToString(bool b) {
    return b ? "True" : "False";
}

std::string mDataMod_ConvertBooleanTo1or0(bool b) {
    return b ? "1" : "0";
}

} // namespace velmarin
