#pragma once

#include "book/DraftRun.h"

#include <chrono>
#include <string>

namespace velmarin {

/// Says on standard error how far the reading of a book is: in one line that is written over if it is a terminal,
/// otherwise in a note a minute.
class ReadingReport {
  public:
    ReadingReport();
    ~ReadingReport();
    ReadingReport(const ReadingReport&) = delete;
    ReadingReport& operator=(const ReadingReport&) = delete;

    void show(const ReadingProgress& progress);

  private:
    bool terminal_;
    bool lineOpen_ = false;
    std::chrono::steady_clock::time_point noted_;
};

/// "12 of 1702 pages, 5 minutes left"
std::string inWords(const ReadingProgress& progress);

} // namespace velmarin
