#include "files/TemporaryName.h"

#include <algorithm>
#include <array>
#include <atomic>

#include <unistd.h>

namespace velmarin {

namespace {

constexpr std::string_view kStart = ".velmarin-";
/// By TemporaryKind.
constexpr std::array<std::string_view, 3> kEndings{".tmp", ".swap", ".old"};

bool isNumbers(std::string_view text) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return !text.empty() && isDigit(text.front()) && isDigit(text.back()) &&
           std::count(text.begin(), text.end(), '-') == 1 &&
           std::all_of(text.begin(), text.end(), [&](char c) { return isDigit(c) || c == '-'; });
}

} // namespace

std::string newTemporaryName() {
    static std::atomic<unsigned> counter{0};
    return std::string(kStart) + std::to_string(::getpid()) + "-" + std::to_string(counter++) +
           std::string(kEndings[0]);
}

std::string temporaryNameAs(TemporaryKind kind, std::string_view name) {
    return std::string(name.substr(0, name.rfind('.'))).append(kEndings[static_cast<std::size_t>(kind)]);
}

std::optional<TemporaryKind> temporaryKind(std::string_view name) {
    if (!name.starts_with(kStart))
        return std::nullopt;
    for (std::size_t kind = 0; kind < kEndings.size(); ++kind) {
        const std::string_view end = kEndings[kind];
        if (name.ends_with(end) && name.size() > kStart.size() + end.size() &&
            isNumbers(name.substr(kStart.size(), name.size() - kStart.size() - end.size())))
            return static_cast<TemporaryKind>(kind);
    }
    return std::nullopt;
}

bool isTemporaryName(std::string_view name) {
    return temporaryKind(name).has_value();
}

} // namespace velmarin
