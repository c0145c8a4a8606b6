#include "maintenance/MaintenanceResult.h"

#include "text/Utf8.h"

#include <algorithm>

namespace velmarin {

namespace {

constexpr std::size_t kMostListed = 200;

} // namespace

void MaintenanceResult::fail(const TreePlan& plan) {
    failures.insert(failures.end(), plan.unreadable.begin(), plan.unreadable.end());
    failures.insert(failures.end(), plan.leftOut.begin(), plan.leftOut.end());
}

void MaintenanceResult::append(const MaintenanceResult& other) {
    items.insert(items.end(), other.items.begin(), other.items.end());
    failures.insert(failures.end(), other.failures.begin(), other.failures.end());
}

std::string failureMessage(const MaintenanceResult& result) {
    if (result.failures.empty())
        return {};
    std::string message =
        result.failures.size() == 1 ? "This item could not be handled:\n" : "These items could not be handled:\n";
    const std::size_t listed = std::min(result.failures.size(), kMostListed);
    for (std::size_t i = 0; i < listed; ++i)
        message += "\n" + toValidUtf8(result.failures[i].item.path().native()) + "\n    " + result.failures[i].reason;
    if (listed < result.failures.size())
        message += "\n\nand " + std::to_string(result.failures.size() - listed) + " more.";
    return message;
}

} // namespace velmarin
