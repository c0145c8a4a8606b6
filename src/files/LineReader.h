#pragma once

#include <cstddef>
#include <string_view>

namespace velmarin {

inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Takes a text apart into lines that end in LF, CR or CR LF; the last needs no end, and an end at the very end starts
/// no further line. A byte-order mark at the start belongs to no line.
class LineReader {
  public:
    explicit LineReader(std::string_view text);
    bool EOF_() const { return at_ >= text_.size(); }
    /// The next line without its end; empty at the end of the text. The view lasts as long as the text does.
    std::string_view ReadLine();
    /// Where the next line begins, in bytes.
    std::size_t position() const { return at_; }

  private:
    std::string_view text_;
    std::size_t at_ = 0;
};

} // namespace velmarin
