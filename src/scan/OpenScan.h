#pragma once

#include "scan/ScanSource.h"
#include "scan/ScanTool.h"

namespace velmarin {

/// Opens a scan. Its content decides what it is, not its name. Fails, naming program and package, if a program that it
/// needs is missing.
OpenedScan openScan(const FolderItem& item, const ScanTools& tools = {});

} // namespace velmarin
