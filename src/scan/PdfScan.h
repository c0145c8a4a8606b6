#pragma once

#include "scan/ScanSource.h"
#include "scan/ScanTool.h"

namespace velmarin {

/// Opens a PDF through the programs of poppler.
OpenedScan openPdfScan(const FolderItem& file, const ScanTools& tools);

} // namespace velmarin
