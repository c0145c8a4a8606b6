#pragma once

#include "files/TextFile.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace velmarin {

/// The lines of a long file one after the other, as views into a window and without a copy of each: what a look-up that
/// reads a million of them needs. Lines end as for LineReader; a byte-order mark at the start belongs to none.
class LineScanner {
  public:
    /// `file` must outlive the scanner.
    explicit LineScanner(const ReadOnlyFile& file);

    /// False at the end of the file. The line lasts until the next call; what goes beyond FileLineReader::kLongestLine
    /// bytes is left out.
    bool next(std::string_view& line);

  private:
    bool refill();
    std::size_t find(char wanted, std::size_t& known) const;

    const ReadOnlyFile& file_;
    std::vector<char> window_;
    std::uint64_t readTo_ = 0;
    std::size_t at_ = 0;
    std::size_t filled_ = 0;
    bool ended_ = false;
    // No LF and no CR stands between `at_` and these, so that a file of one kind is not looked through for the other at
    // each line.
    std::size_t nextLf_ = 0;
    std::size_t nextCr_ = 0;
};

} // namespace velmarin
