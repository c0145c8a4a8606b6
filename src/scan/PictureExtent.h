#pragma once

#include "view/PageImageSize.h"

#include <filesystem>
#include <optional>

namespace velmarin {

/// The size of a picture file as it is shown; nullopt if it cannot be decoded.
std::optional<Extent> pictureExtent(const std::filesystem::path& file);

} // namespace velmarin
