#pragma once

#include "cli/Output.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace velmarin {

/// The words that a command works on: its arguments or, without any, the lines of standard input. Lines end in LF, CR
/// or CR LF, and a byte-order mark at the start is skipped, as in the text files of a dictionary.
class Words {
  public:
    /// `out` is flushed before each wait for input, so that a program that writes words to a pipe can read the answers.
    Words(std::vector<std::string> given, Output& out);

    /// The next word; nothing at the end. An empty line is an empty word. Raises CannotDo if the input cannot be read
    /// or a line is longer than kLongestWord bytes.
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
