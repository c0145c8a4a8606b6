#pragma once

#include "files/FolderItem.h"
#include "files/LinePlaces.h"
#include "files/ReadOnlyFile.h"

#include <cstdint>
#include <optional>
#include <string>

namespace velmarin {

/// A text file whose lines are read by number. It remembers where lines begin, as far as it had to scan the file, and
/// scans again if the size, identity or time of change of the file differs. It keeps none of the text.
class IndexedTextFile {
  public:
    IndexedTextFile() = default;
    explicit IndexedTextFile(FolderItem file);

    const FolderItem& item() const { return file_; }

    enum class Status { Found, NoSuchLine, NoFile };
    struct Line {
        Status status = Status::NoFile;
        std::string text;
    };
    /// Line `number`, counted from 1, without its end (and without what LineScanner leaves out of a huge one).
    /// Raises NilObjectException if the disk fails.
    Line line(std::uint64_t number);

    /// Finds where all lines begin, in one pass, so that no call of line() has to. If the disk fails, the next call of
    /// line() raises.
    void findLines();

  private:
    void forgetPlacesUnlessSame(const FileStamp& stamp);

    FolderItem file_;
    FileStamp stamp_;
    bool wasSettled_ = false;
    LinePlaces places_;
};

} // namespace velmarin
