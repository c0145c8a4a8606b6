#pragma once

#include "book/ReadingLog.h"
#include "book/TakenPages.h"
#include "reading/HeadReader.h"

#include <memory>
#include <string>
#include <vector>

namespace velmarin {

/// What came of one page of a scan.
struct ReadScanPage {
    std::vector<LoggedReading> readings = {}; ///< of its pictures
    Result result = {};                       ///< why it has none
    bool fatal = false;                       ///< the same would happen to other pages
};

/// Reads pages of a scan. One is used by one thread at a time.
class ScanPageReader {
  public:
    ScanPageReader(const BookFolder& book, const ScanSource& scan, const PageTaker& taker,
                   std::shared_ptr<const WordList> words);

    ReadScanPage read(int page, const PageOptions& options);

  private:
    ReadScanPage readPictures(int page, const PageOptions& options);

    const BookFolder& book_;
    const ScanSource& scan_;
    const PageTaker& taker_;
    HeadReader reader_;
    Result opened_; ///< whether there are language data
};

/// What tells a reading of the picture, as it is now, from older ones.
LoggedReading readingToBe(const FolderItem& picture, const BookSettings& settings);
bool isReadingOf(const LoggedReading& reading, const LoggedReading& wanted);

} // namespace velmarin
