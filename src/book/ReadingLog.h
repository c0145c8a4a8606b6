#pragma once

#include "files/AppendFile.h"
#include "files/Result.h"
#include "reading/PageReading.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <unordered_map>

namespace velmarin {

/// A page that was read, or could not be.
struct LoggedReading {
    PageReading reading = {};
    std::string failure = {}; ///< why it could not be read; empty if it was
    /// Of what it is a reading: if one of these is another now, the page has to be read again.
    std::string languages = {}; ///< and word lists of the reader, joined by "+"
    std::uint64_t size = 0;     ///< of the picture file
    std::int64_t changed = 0;   ///< when the picture file was, in nanoseconds
};

/// By the name of the page.
using Readings = std::unordered_map<std::string, LoggedReading>;

/// The readings of a book: a file of JSON, one line for each, in the order in which they were made. Of several lines of
/// a page the last one counts. A line that a kill or a full disk has cut short is passed over. Empty if the file is
/// missing; NilObjectException if it cannot be read.
Readings readReadings(const FolderItem& file);

/// Adds readings to that file.
class ReadingLog {
  public:
    /// Makes the file if it is missing.
    Result open(const FolderItem& file);

    /// Writes one line. Flushes the file to the disk if that was not done in the last seconds.
    Result add(const LoggedReading& reading);
    Result flush();

  private:
    Result failed() const;

    FolderItem item_;
    AppendFile file_;
    std::chrono::steady_clock::time_point flushed_ = {};
};

} // namespace velmarin
