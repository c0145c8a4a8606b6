#include "store/TemporaryName.h"

#include <algorithm>
#include <atomic>

#include <unistd.h>

namespace velmarin {

namespace {

constexpr std::string_view kStart = ".velmarin-";
constexpr std::string_view kEnd = ".tmp";

} // namespace

std::string newTemporaryName() {
    static std::atomic<unsigned> counter{0};
    return std::string(kStart) + std::to_string(::getpid()) + "-" + std::to_string(counter++) + std::string(kEnd);
}

bool isTemporaryName(std::string_view name) {
    if (name.size() <= kStart.size() + kEnd.size() || !name.starts_with(kStart) || !name.ends_with(kEnd))
        return false;
    const std::string_view numbers = name.substr(kStart.size(), name.size() - kStart.size() - kEnd.size());
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return isDigit(numbers.front()) && isDigit(numbers.back()) &&
           std::count(numbers.begin(), numbers.end(), '-') == 1 &&
           std::all_of(numbers.begin(), numbers.end(), [&](char c) { return isDigit(c) || c == '-'; });
}

} // namespace velmarin
