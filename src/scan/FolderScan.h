#pragma once

#include "scan/ScanSource.h"

namespace velmarin {

/// Opens a folder of page pictures, whose names sort in page order. A text layer is a file beside a picture with its
/// name and the extension "hocr", "html", "htm" or "xml".
OpenedScan openFolderScan(const FolderItem& folder);

} // namespace velmarin
