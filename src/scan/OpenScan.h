#pragma once

#include "scan/ScanSource.h"
#include "scan/ScanTool.h"

#include <string>
#include <vector>

namespace velmarin {

/// The kinds of scan that are one file, as messages and help name them.
inline const std::string kScanFileKinds = "a PDF, a DjVu or a TIFF file";
/// Their usual extensions.
inline const std::vector<std::string> kScanFileExtensions = {".pdf", ".djvu", ".djv", ".tif", ".tiff"};

/// Opens a scan. Its content decides what it is, not its name. Fails, naming program and package, if a program that it
/// needs is missing.
OpenedScan openScan(const FolderItem& item, const ScanTools& tools = {});

} // namespace velmarin
