#pragma once

#include "cli/Session.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace velmarin {

/// The words that a command works on: its arguments or, without any, the lines of standard input. Lines end in LF, CR
/// or CR LF, and a byte-order mark at the start is skipped, as in the text files of a dictionary.
class Words {
  public:
    /// The output is flushed before each wait for input, so that a program that writes words to a pipe can read the
    /// answers.
    Words(std::vector<std::string> given, Session& session);

    /// The next word. An empty line is an empty word. Returns nullopt at the end, if the output has failed, and, with a
    /// failure of the session, if the input cannot be read or a line is longer than kLongestWord bytes.
    std::optional<std::string> next();

    static constexpr std::size_t kLongestWord = std::size_t{1} << 20;

  private:
    std::optional<std::string> nextLine();
    bool refill();

    std::vector<std::string> given_;
    std::size_t nextGiven_ = 0;
    bool fromInput_;
    Session& session_;

    std::string buffer_;
    std::size_t at_ = 0;
    bool started_ = false;
    bool skipLineFeed_ = false;
    bool broken_ = false; ///< the input could not be read
};

} // namespace velmarin
