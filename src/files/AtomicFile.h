#pragma once

#include "files/Result.h"

#include <filesystem>
#include <string_view>

namespace velmarin {

/// Whether a file must survive a loss of power, or only be whole (the window placement, rewritten at every move).
enum class Durability { Flushed, RenamedOnly };

/// Writes every file that the program rewrites: it writes a temporary file beside it, checks its size, flushes it,
/// renames it over the old one and flushes the folder, so that the file always holds its old bytes or its new ones. A
/// link is followed and stays a link; an existing file keeps its permissions. On failure the temporary file is removed.
/// A flushed write first clears the leftovers of killed runs from the folder.
Result writeFileAtomically(const std::filesystem::path& path, std::string_view bytes,
                           Durability durability = Durability::Flushed);

} // namespace velmarin
