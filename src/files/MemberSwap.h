#pragma once

#include "files/Work.h"

#include <filesystem>
#include <string>
#include <vector>

namespace velmarin {

// Inside the hidden folder of StagedMembers: the new members, the old ones, a mark for each old one that is copied
// there and then removed in its place, and the list of the new ones' names.
inline constexpr const char* kNewMembers = "new";
inline constexpr const char* kOldMembers = "old";
inline constexpr const char* kCopiedMembers = "copied";
inline constexpr const char* kMemberList = "names";

/// To which of the new members `names` an old member of this name belongs: the equal one, or else the first that is
/// equal when case and Unicode composition are ignored; empty if there is none.
std::string replacedBy(const std::string& oldName, const std::vector<std::string>& names);

/// Takes back the swap of those members of `hidden` (a hidden folder in `folder`) that belong to `names`: new ones that
/// are in place go back into `hidden`, old ones get their names. Can be repeated after a failure, which is false with
/// errno, or a kill.
bool undoSwap(const std::filesystem::path& hidden, const std::filesystem::path& folder,
              const std::vector<std::string>& names, Work& work);

} // namespace velmarin
