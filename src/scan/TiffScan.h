#pragma once

#include "scan/ScanSource.h"

namespace velmarin {

/// Opens a TIFF of one page or more. A chain of pages that returns to itself ends there.
OpenedScan openTiffScan(const FolderItem& file);

} // namespace velmarin
