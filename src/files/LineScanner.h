#pragma once

#include "files/ReadOnlyFile.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace velmarin {

/// The lines of a file one after the other, as views into a window: no line is copied, and a file of any length takes
/// little memory. Lines end as for LineReader; a byte-order mark at the start of the file belongs to none.
class LineScanner {
  public:
    /// `file` must outlive the scanner; `offset` is where a line begins.
    explicit LineScanner(const ReadOnlyFile& file, std::uint64_t offset = 0);

    /// False at the end of the file. The line lasts until the next call; what goes beyond kLongestLine bytes is left
    /// out.
    bool next(std::string_view& line);
    /// Where the next line begins, in bytes.
    std::uint64_t position() const { return readTo_ - (filled_ - at_); }

    static constexpr std::size_t kLongestLine = std::size_t{1} << 24;
    /// How much is read at a time.
    static constexpr std::size_t kWindow = std::size_t{1} << 16;

  private:
    bool refill();
    std::size_t find(char wanted, std::size_t& known) const;

    const ReadOnlyFile& file_;
    std::vector<char> window_;
    std::uint64_t readTo_;
    std::size_t at_ = 0;
    std::size_t filled_ = 0;
    bool ended_ = false;
    // No LF and no CR lies between `at_` and these, so that a file of one kind is not searched for the other at each
    // line.
    std::size_t nextLf_ = 0;
    std::size_t nextCr_ = 0;
};

} // namespace velmarin
