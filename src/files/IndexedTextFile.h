#pragma once

#include "files/FolderItem.h"
#include "files/ReadOnlyFile.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

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

  private:
    /// The interval, in lines, at which places are noted.
    static constexpr std::uint64_t kStep = 64;

    void forgetPlacesUnlessSame(const FileStamp& stamp);
    /// `place` is where the line after the known ones begins.
    void notePlace(std::uint64_t place);

    FolderItem file_;
    FileStamp stamp_;
    bool wasSettled_ = false;
    /// Where lines 1, 1 + kStep, 1 + 2 kStep ... begin, as far as known.
    std::vector<std::uint64_t> everyNth_;
    std::uint64_t knownLines_ = 0;
    std::uint64_t knownTo_ = 0;
};

} // namespace velmarin
