#pragma once

#include "files/Descriptor.h"
#include "files/Result.h"
#include "reading/PageReading.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace velmarin {

/// A page that was read, or could not be.
struct LoggedReading {
    PageReading reading = {};
    std::string failure = {}; ///< why it could not be read; empty if it was
    /// Of what it is a reading: if one of these is another now, the page has to be read again.
    std::string languages = {};
    std::uint64_t size = 0;   ///< of the picture file
    std::int64_t changed = 0; ///< nanoseconds
};

/// The readings of a book, by page: a file of JSON, one line for each, in the order in which they were made. The last
/// line of a page counts. A line that a kill or a full disk has cut short is passed over.
std::map<std::string, LoggedReading> readReadings(const FolderItem& file);

/// Adds readings to that file.
class ReadingLog {
  public:
    /// Makes the file if it is missing.
    Result open(const std::filesystem::path& file);

    /// Writes one line, and flushes it to the disk if the last flush was a few seconds ago.
    Result add(const LoggedReading& reading);
    /// Flushes what was added.
    Result flush();

  private:
    Result failed() const;

    std::filesystem::path file_;
    Descriptor descriptor_;
    std::int64_t flushed_ = 0; ///< seconds of the steady clock
};

} // namespace velmarin
