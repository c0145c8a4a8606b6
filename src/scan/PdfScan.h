#pragma once

#include "scan/ScanSource.h"

namespace velmarin {

/// Opens a PDF through the programs of poppler.
OpenedScan openPdfScan(const FolderItem& file, const ScanTools& tools);

} // namespace velmarin
