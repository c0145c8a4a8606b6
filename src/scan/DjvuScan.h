#pragma once

#include "scan/ScanSource.h"
#include "scan/ScanTool.h"

#include <string_view>

namespace velmarin {

/// Whether a file with this start is DjVu. Source: DjVu3 Reference (LizardTech, 2005).
bool isDjvu(std::string_view start);

/// Opens a DjVu file, of one page or more, through the programs of DjVuLibre.
OpenedScan openDjvuScan(const FolderItem& file, const ScanTools& tools);

} // namespace velmarin
