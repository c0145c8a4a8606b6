#pragma once

#include "cli/PictureNames.h"

#include <vector>

namespace velmarin {

/// Decodes each picture once, in several threads. Those that cannot be decoded completely are findings.
void checkPictures(const std::vector<NamedPicture>& pictures, Findings& findings);

} // namespace velmarin
