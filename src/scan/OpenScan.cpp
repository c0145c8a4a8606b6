#include "scan/OpenScan.h"

#include "files/ReadOnlyFile.h"
#include "scan/DjvuScan.h"
#include "scan/FolderScan.h"
#include "scan/PdfScan.h"
#include "scan/TiffScan.h"
#include "store/PictureFormats.h"

#include <string>

namespace velmarin {

OpenedScan openScan(const FolderItem& item, const ScanTools& tools) {
    if (item.Directory())
        return openFolderScan(item);
    const auto file = ReadOnlyFile::open(item);
    constexpr std::size_t kStart = 1024; // a PDF may have other bytes before its header
    const auto start = file ? readFileStart(*file, kStart) : std::nullopt;
    if (!start)
        return {.result = Failure{item, "it could not be read"}};
    if (pictureFormat(*start, "") == PictureFormat::Tiff)
        return openTiffScan(item);
    if (start->find("%PDF-") != std::string::npos)
        return openPdfScan(item, tools);
    if (isDjvu(*start))
        return openDjvuScan(item, tools);
    return {.result = Failure{item, "it is not a folder of pictures, " + kScanFileKinds}};
}

} // namespace velmarin
