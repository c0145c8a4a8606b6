#pragma once

#include "scan/ScanSource.h"

namespace velmarin {

/// Opens a folder of page pictures, whose names sort in page order. Text layers are files beside the pictures
/// (TextFiles).
OpenedScan openFolderScan(const FolderItem& folder);

} // namespace velmarin
