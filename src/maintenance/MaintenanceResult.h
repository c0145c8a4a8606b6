#pragma once

#include "files/Result.h"
#include "files/TreePlan.h"

#include <string>
#include <vector>

namespace velmarin {

/// Reported if a chosen folder is not a dictionary.
inline constexpr const char* kNotADictionary = "This is not a Dictionary !";

enum class ItemOutcome {
    Installed,    ///< a new dictionary in a group
    Exported,     ///< a dictionary in a folder that the user chose
    AlreadyThere, ///< the target has the identical dictionary, for example after an interrupted run
    BackedUp,     ///< a member of an installed copy, moved to the backup folder
    Replaced,     ///< a member of an installed copy, replaced by that of the new version
    Added,        ///< a member that the installed copy did not have
    Skipped,      ///< nothing was done: the dictionary has no `FW`, or must not replace what the target has
};

struct HandledItem {
    ItemOutcome outcome;
    FolderItem item; ///< where it is now
};

/// What install, update or export did, in order, and what failed. An item that was left out of a copy is a failure too.
struct MaintenanceResult {
    std::vector<HandledItem> items;
    Failures failures;

    void add(ItemOutcome outcome, const FolderItem& item) { items.push_back({outcome, item}); }
    void fail(const FolderItem& item, std::string reason) { failures.push_back({item, std::move(reason)}); }
    /// Adds what the plan of a copy cannot read or leaves out.
    void fail(const TreePlan& plan);
    void append(const MaintenanceResult& other);
};

/// One message that lists the failures with their reasons; empty if there is none.
std::string failureMessage(const MaintenanceResult& result);

} // namespace velmarin
