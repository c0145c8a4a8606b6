#pragma once

#include "cli/Output.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace velmarin {

/// The words that a command works on: those of the command line or, where it has none, the lines of standard input,
/// which end as those of a dictionary's text files do (LF, CR or CR LF; a byte-order mark at the start is no text).
class Words {
  public:
    /// `out` is flushed before each wait for input, so that a program at the other end of two pipes gets its answers.
    Words(std::vector<std::string> given, Output& out);

    /// The next word; nothing at the end. An empty line is an empty word. Input that cannot be read raises CannotDo,
    /// and so does a line longer than kLongestWord bytes.
    std::optional<std::string> next();

    static constexpr std::size_t kLongestWord = std::size_t{1} << 20;

  private:
    std::optional<std::string> nextLine();
    bool refill();

    std::vector<std::string> given_;
    std::size_t nextGiven_ = 0;
    bool fromInput_;
    Output& out_;

    std::string buffer_;
    std::size_t at_ = 0;
    bool started_ = false;
    bool skipLineFeed_ = false;
};

} // namespace velmarin
