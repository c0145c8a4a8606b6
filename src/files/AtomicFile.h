#pragma once

#include "files/Result.h"

#include <filesystem>
#include <string_view>

namespace velmarin {

/// Whether a file must survive a loss of power, or only be whole (the window placement, rewritten at every move).
enum class Durability { Flushed, RenamedOnly };

/// The one writer of every file that the program rewrites: a temporary file beside it, every byte checked, flushed,
/// renamed over the old one, the folder flushed. At any moment the file holds its old bytes or its new ones. A link is
/// followed and stays a link; the permissions of an existing file are kept. On failure the temporary file is gone. A
/// flushed write first clears the leftovers of killed runs from the folder.
Result writeFileAtomically(const std::filesystem::path& path, std::string_view bytes,
                           Durability durability = Durability::Flushed);

} // namespace velmarin
