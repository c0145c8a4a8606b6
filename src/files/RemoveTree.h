#pragma once

#include "files/Work.h"

#include <filesystem>

namespace velmarin {

/// Removes a file, link or folder with all it holds, write-protected folders included. False with errno of the first
/// failure; the rest is removed all the same.
bool removeTree(const std::filesystem::path& item, Work& work);

} // namespace velmarin
