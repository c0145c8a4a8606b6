#pragma once

#include "files/Work.h"

#include <filesystem>
#include <vector>

namespace velmarin {

/// Clears up after killed runs in a folder (files/TemporaryName.h): removes what was still staged, and undoes an
/// interrupted swap of members, so that the old ones have their names again. It keeps hidden folders of replaced
/// members that are not empty, and whatever a running process has locked.
void clearLeftovers(const std::filesystem::path& folder, Work& work);
/// Whether there is any leftover.
bool holdsLeftovers(const std::filesystem::path& folder);

/// Whether a killed run has left a swap of members that is not undone yet. Until then members of the folder are
/// missing.
bool holdsInterruptedSwap(const std::filesystem::path& folder);

/// Removes a hidden folder whose replaced members are saved. It is renamed first, so that a rest that cannot be removed
/// is not saved a second time. Returns false with errno if something is left.
bool removeSaved(const std::filesystem::path& hidden, Work& work);

/// The hidden folders in `folder` with replaced members that a killed run did not move to their backup.
std::vector<std::filesystem::path> unsavedMembers(const std::filesystem::path& folder);

} // namespace velmarin
