#pragma once

#include "book/DraftRun.h"
#include "scan/ScanSource.h"

#include <atomic>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace velmarin {

/// The pictures of all pages of a scan, in the order of the book.
struct AllPages {
    std::vector<std::string> names = {}; ///< of files in the folder
    Result result = {};
};

/// Takes all pages of a scan that is a file out into `folder`, on all processor cores. Fails with the first page that
/// cannot be taken out, or when it is asked to stop.
AllPages takeAllPages(const ScanSource& scan, const std::filesystem::path& folder, const std::atomic<bool>& stop,
                      const std::function<void(const ReadingProgress&)>& report);

} // namespace velmarin
