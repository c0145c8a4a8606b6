#pragma once

#include "book/BookFolder.h"
#include "scan/ScanSource.h"

#include <map>
#include <string>
#include <vector>

namespace velmarin {

/// How a page of the scan, counted from 1, becomes pictures.
PageOptions pageOptions(const PageSettings& settings, int page);

/// Removes the pictures in the folder of the book that are not what would be taken out of the scan now, because the
/// settings or the scan have changed since. Those that are left are not made again.
Result dropStalePages(BookFolder& book);

/// The pictures of the pages of a scan, for a book. Those that the scan does not have as files of its own are made in
/// the folder of the book.
class PageTaker {
  public:
    PageTaker(const BookFolder& book, const ScanSource& scan);

    /// The pictures of a page of the scan that are there already.
    const std::vector<BookPicture>& found(int page) const;
    /// The pictures of a page of the scan, made if they are not there. May be called from several threads, with
    /// different pages.
    PagePictures take(int page, const PageOptions& options) const;

  private:
    PagePictures takeOfFolder(int page, const PageOptions& options) const;

    const BookFolder& book_;
    const ScanSource& scan_;
    std::map<int, std::vector<BookPicture>> found_;
    std::vector<std::string> scanFiles_;
};

} // namespace velmarin
