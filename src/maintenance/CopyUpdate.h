#pragma once

#include "files/StagedMembers.h"
#include "files/TreePlan.h"
#include "files/Work.h"
#include "maintenance/MaintenanceResult.h"

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace velmarin {

/// Replaces members of one installed copy, which is locked and has no leftovers (see updateDictionary).
class CopyUpdate {
  public:
    /// The replaced members go to the folder `backup`. `copy`, `work` and `result` must outlive the object.
    CopyUpdate(const FolderItem& copy, std::filesystem::path backup, Work& work, MaintenanceResult& result)
        : copy_(copy), backup_(std::move(backup)), work_(work), result_(result) {}

    /// `members` are the new members by name; `unreadable` names those that cannot be copied. Nothing is replaced if
    /// `sourceChanged`, which is called when all are staged, returns true.
    void run(const std::map<std::string, TreePlan>& members, std::vector<std::string> unreadable,
             const std::function<bool()>& sourceChanged);

  private:
    /// Returns false if something could not be written. Then the whole copy stays as it is.
    bool stage(StagedMembers& staged, const std::map<std::string, TreePlan>& members);
    /// The staged members in groups that are swapped together.
    std::vector<std::vector<std::string>> unitsToSwap();
    /// Moves what was replaced to the backup folder. If that fails, the copy is as it was.
    bool backUpOld(StagedMembers& staged);
    void report();

    const FolderItem& copy_;
    std::filesystem::path backup_;
    Work& work_;
    MaintenanceResult& result_;
    std::vector<std::string> new_;             ///< staged members
    std::vector<std::string> kept_;            ///< members that stay old
    std::vector<std::string> swapped_;         ///< members that are replaced or added
    std::vector<std::filesystem::path> saved_; ///< old members in the backup folder
};

} // namespace velmarin
