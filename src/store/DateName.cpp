#include "store/DateName.h"

#include "text/NumberText.h"

#include <chrono>
#include <ctime>

namespace velmarin {

std::string mDataMod_MakeDateName() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    std::string name;
    for (const int part : {local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec})
        name += Format(part, "00");

    using Microseconds = std::chrono::duration<double, std::micro>;
    const double sinceStart = Microseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
    const std::string digits = Format(sinceStart, "#.######");
    const std::string last = digits.size() > 6 ? digits.substr(digits.size() - 6) : digits;
    for (const char c : last) {
        if (c != '.' && c != ',')
            name += c;
    }
    return name;
}

} // namespace velmarin
