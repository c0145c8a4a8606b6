#pragma once

#include "files/Work.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace velmarin {

// In the hidden folder of StagedMembers: the folders of the new and of the old members, the folder of marks, and the
// list of the new members' names. An old member that cannot be renamed has a mark: it is copied, then removed.
inline constexpr const char* kNewMembers = "new";
inline constexpr const char* kOldMembers = "old";
inline constexpr const char* kCopiedMembers = "copied";
inline constexpr const char* kMemberList = "names";

/// The name in `names`, those of the new members, that replaces an old member: the equal one, or else the first that is
/// equal when case and Unicode composition are ignored; empty if there is none.
std::string replacedBy(const std::string& oldName, const std::vector<std::string>& names);

/// The places of the old members in a hidden folder; nullopt with errno if they cannot be listed.
std::optional<std::vector<std::filesystem::path>> oldMembersIn(const std::filesystem::path& hidden);

/// Undoes the swap of the members `names` of `folder`: new members return to `hidden`, a hidden folder in `folder`, and
/// old members get their names back. False with errno. Can be repeated after a failure or a kill.
bool undoSwap(const std::filesystem::path& hidden, const std::filesystem::path& folder,
              const std::vector<std::string>& names, Work& work);

} // namespace velmarin
