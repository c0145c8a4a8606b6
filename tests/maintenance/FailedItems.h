#pragma once

#include "maintenance/MaintenanceResult.h"

namespace velmarin::test {

/// The items that failed, as paths relative to `folder`.
inline std::vector<std::string> failedItems(const MaintenanceResult& result, const std::filesystem::path& folder) {
    std::vector<std::string> items;
    for (const Failure& each : result.failures)
        items.push_back(each.item.path().lexically_relative(folder));
    return items;
}

} // namespace velmarin::test
