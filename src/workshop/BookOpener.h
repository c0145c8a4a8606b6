#pragma once

#include "book/BookFolder.h"

#include <filesystem>
#include <memory>

class QWidget;

namespace velmarin {

class Host;

/// Opens the working folder of a book to be written to, or the book of a scan, for which the user is asked where its
/// folder is to be. Tells what fails. Null if nothing was opened.
std::unique_ptr<BookFolder> openBookOrScan(const std::filesystem::path& path, Host& host, QWidget* window);

} // namespace velmarin
