#pragma once

#include "files/Result.h"
#include "scan/PageEncoding.h"
#include "scan/PageOptions.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace velmarin {

/// The pictures of a page that are in `folder` already, whole, as writePageFiles has left them; empty if they are not.
std::vector<std::filesystem::path> pageFilesIn(const std::filesystem::path& folder, std::size_t page, Spread spread);

/// Writes the pictures of a page in reading order, two for a spread that was cut. The first is written last, so that
/// all are there if it is. Other pictures of that page are removed before. Fails, for example, on a full disk.
PagePictures writePageFiles(const std::filesystem::path& folder, std::size_t page, Spread spread,
                            const std::vector<EncodedPage>& pictures);

} // namespace velmarin
