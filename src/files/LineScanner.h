#pragma once

#include "files/ReadOnlyFile.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace velmarin {

/// Reads a file line by line through a window, so that no line is copied and a file of any length takes little memory.
/// Lines end as in LineReader; a byte-order mark at the start of the file belongs to no line.
class LineScanner {
  public:
    /// `file` must outlive the scanner; `offset` is where a line begins. `piece` is how much is read at a time, at
    /// least 3 (a byte-order mark): less for a caller that wants a few lines only.
    explicit LineScanner(const ReadOnlyFile& file, std::uint64_t offset = 0, std::size_t piece = kWindow);

    /// False at the end of the file. The view is valid until the next call. Bytes of a line after the first
    /// kLongestLine are left out. Raises NilObjectException, as the constructor does, if the disk fails.
    bool next(std::string_view& line);
    /// Where the next line begins, in bytes.
    std::uint64_t position() const { return readTo_ - (filled_ - at_); }

    static constexpr std::size_t kLongestLine = std::size_t{1} << 24;
    /// How much is read at a time by default.
    static constexpr std::size_t kWindow = std::size_t{1} << 16;

  private:
    bool refill();
    std::size_t find(char wanted, std::size_t& known) const;

    const ReadOnlyFile& file_;
    std::size_t piece_;
    std::vector<char> window_;
    std::uint64_t readTo_;
    std::size_t at_ = 0;
    std::size_t filled_ = 0;
    bool ended_ = false;
    // The next LF and the next CR at or after `at_` are not before these positions. Without them, a file with LF ends
    // would be searched for a CR to the end of the window at each line.
    std::size_t nextLf_ = 0;
    std::size_t nextCr_ = 0;
};

} // namespace velmarin
