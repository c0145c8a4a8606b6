#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// A table with a header row, as a spreadsheet saves it: UTF-8 with or without a byte-order mark, lines that end in LF,
/// CR or CR LF, fields with line ends or separators in quotes (RFC 4180). The separator is the first of TAB, ";" and
/// "," that the header row has.
class SeparatedValues {
  public:
    static SeparatedValues parse(std::string_view text);

    /// False if a quote is opened and never closed: the rows after it are missing.
    bool isWhole() const { return whole_; }
    std::size_t rowCount() const { return rows_.size(); }
    /// Names of columns are compared without case.
    bool hasColumn(std::string_view name) const { return column(name).has_value(); }
    /// A field without blanks at its ends; empty if the row is too short or there is no such column. Rows count from 0,
    /// without the header.
    std::string_view field(std::size_t row, std::string_view name) const;
    /// The number of the row as a spreadsheet shows it: the header is row 1, and empty rows count.
    std::size_t numberOf(std::size_t row) const { return numbers_[row]; }

  private:
    std::optional<std::size_t> column(std::string_view name) const;

    std::vector<std::string> columns_;
    std::vector<std::vector<std::string>> rows_;
    std::vector<std::size_t> numbers_;
    bool whole_ = true;
};

/// A field as it is written in a table with TABs: in quotes if it has a TAB, a line end, or begins with a quote.
std::string tabSeparatedField(std::string_view text);

} // namespace velmarin
