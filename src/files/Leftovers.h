#pragma once

#include "files/Work.h"

#include <filesystem>
#include <vector>

namespace velmarin {

/// Clears up after killed runs in a folder (files/TemporaryName.h): removes what was not whole yet, and takes an
/// interrupted swap of members back, so that the old ones have their names again. Hidden folders of replaced members
/// stay, unless they are empty, and so does all that a running process holds locked.
void clearLeftovers(const std::filesystem::path& folder, Work& work);
/// Whether there is any leftover.
bool holdsLeftovers(const std::filesystem::path& folder);

/// Whether a killed run has left a swap of members that is not taken back yet: members of the folder are missing.
bool holdsInterruptedSwap(const std::filesystem::path& folder);

/// Removes a hidden folder whose replaced members are saved. It is renamed first, so that what cannot be removed is not
/// saved once more. Returns false with errno if something is left.
bool removeSaved(const std::filesystem::path& hidden, Work& work);

/// The hidden folders in `folder` from which a killed run had still to move replaced members to their backup.
std::vector<std::filesystem::path> unsavedMembers(const std::filesystem::path& folder);

} // namespace velmarin
