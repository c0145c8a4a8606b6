#pragma once

#include <filesystem>

namespace velmarin {

/// The user's desktop folder, where what is replaced is kept. It need not exist.
std::filesystem::path desktopFolder();

} // namespace velmarin
