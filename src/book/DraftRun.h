#pragma once

#include "book/BookFolder.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace velmarin {

/// How far the reading of a book is, in pages of its scan.
struct ReadingProgress {
    std::size_t done = 0, of = 0;
    std::optional<std::chrono::seconds> left = {}; ///< nullopt until some pages are read
};

/// What came of the reading of a book.
struct BookReadingResult {
    Result result = {};     ///< why it ended before its end
    bool stopped = false;   ///< because it was asked to; `result` is ok
    std::size_t read = 0;   ///< pages of the scan that were read in this run
    Failures failures = {}; ///< pages of the scan that have no picture, because they could not be taken out
};

/// Reads the pages of a book that are not read yet, or not as its settings and its scan are now, on all processor
/// cores. Each reading is kept in the book as soon as it is made, so that a run that was stopped or killed goes on with
/// the next one. A page that cannot be read is noted, and the others are read. Fails if there are no pages, no
/// language data that are needed, or if the book cannot be written.
///
/// @param stop asks it to stop; seen within a second. May be set in a signal handler.
/// @param report called from the calling thread, a few times a second
BookReadingResult readBook(BookFolder& book, const std::atomic<bool>& stop,
                           const std::function<void(const ReadingProgress&)>& report = {});

} // namespace velmarin
