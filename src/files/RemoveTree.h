#pragma once

#include "files/Work.h"

#include <filesystem>

namespace velmarin {

/// Removes a file, link or folder with all it holds, write-protected folders included. False with errno of the first
/// failure, after which it goes on with the rest.
bool removeTree(const std::filesystem::path& item, Work& work);

} // namespace velmarin
