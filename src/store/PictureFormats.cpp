#include "store/PictureFormats.h"

namespace velmarin {

std::set<std::string> pPictureExtensions = {"tif", "tiff", "jpg", "jpeg", "pict", "pct", "bmp", "png"};

} // namespace velmarin
