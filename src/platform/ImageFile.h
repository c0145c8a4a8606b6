#pragma once

#include "files/Result.h"

#include <string>

class QImage;

namespace velmarin {

/// Writes a picture in the format of the file's extension, whole or not at all.
Result saveImage(const QImage& image, const std::string& file);

} // namespace velmarin
