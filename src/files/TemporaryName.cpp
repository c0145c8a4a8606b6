#include "files/TemporaryName.h"

#include <algorithm>
#include <atomic>

#include <unistd.h>

namespace velmarin {

namespace {

constexpr std::string_view kStart = ".velmarin-";
constexpr std::string_view kEnd = ".tmp";
constexpr std::string_view kSetAsideEnd = ".old";

std::string newName(std::string_view end) {
    static std::atomic<unsigned> counter{0};
    return std::string(kStart) + std::to_string(::getpid()) + "-" + std::to_string(counter++) + std::string(end);
}

bool isName(std::string_view name, std::string_view end) {
    if (name.size() <= kStart.size() + end.size() || !name.starts_with(kStart) || !name.ends_with(end))
        return false;
    const std::string_view numbers = name.substr(kStart.size(), name.size() - kStart.size() - end.size());
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return isDigit(numbers.front()) && isDigit(numbers.back()) &&
           std::count(numbers.begin(), numbers.end(), '-') == 1 &&
           std::all_of(numbers.begin(), numbers.end(), [&](char c) { return isDigit(c) || c == '-'; });
}

} // namespace

std::string newTemporaryName() {
    return newName(kEnd);
}

std::string newSetAsideName() {
    return newName(kSetAsideEnd);
}

bool isTemporaryName(std::string_view name) {
    return isName(name, kEnd) || isSetAsideName(name);
}

bool isSetAsideName(std::string_view name) {
    return isName(name, kSetAsideEnd);
}

} // namespace velmarin
