#pragma once

#include "files/Work.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace velmarin {

/// Removes a file, link or folder with all it holds, write-protected folders included. False with errno of the first
/// failure, after which it goes on with the rest.
bool removeTree(const std::filesystem::path& item, Work& work);

/// Clears up after killed runs in a folder (files/TemporaryName.h): removes what was not whole yet, and takes an
/// interrupted swap of members back, so that the old ones have their names again. Hidden folders of replaced members
/// stay, unless they are empty, and so does all that a running process holds locked.
void clearLeftovers(const std::filesystem::path& folder, Work& work);
/// Whether there is any leftover.
bool holdsLeftovers(const std::filesystem::path& folder);

/// The items of a folder, whatever their names; nothing where it cannot be listed.
std::optional<std::vector<std::filesystem::path>> membersIn(const std::filesystem::path& folder);

/// The hidden folders in `folder` from which a killed run had still to move replaced members to their backup.
std::vector<std::filesystem::path> unsavedMembers(const std::filesystem::path& folder);

// Inside the hidden folder of StagedMembers: the new members, the old ones, a mark for each old one that is copied
// there and then removed in its place, and the list of the new ones' names.
inline constexpr const char* kNewMembers = "new";
inline constexpr const char* kOldMembers = "old";
inline constexpr const char* kCopiedMembers = "copied";
inline constexpr const char* kMemberList = "names";

/// To which of the new members `names` an old member of this name belongs: the equal one, or else the first that is
/// equal when case and Unicode composition are ignored; empty where there is none.
std::string replacedBy(const std::string& oldName, const std::vector<std::string>& names);

/// Takes back the swap of those members of `hidden` (a hidden folder in `folder`) that belong to `names`: new ones that
/// are in place go back into `hidden`, old ones get their names. Can be repeated after a failure, which is false with
/// errno, or a kill.
bool undoSwap(const std::filesystem::path& hidden, const std::filesystem::path& folder,
              const std::vector<std::string>& names, Work& work);

} // namespace velmarin
