#pragma once

#include <cstddef>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace velmarin {

/// The exit status of velmarin-cli.
enum class Status : int {
    Done = 0,
    NothingFound = 1, ///< for `check`: problems found
    CouldNot = 2
};

/// Ends the run with Status::CouldNot. `what()` is the message for standard error, without the program's name.
class CannotDo : public std::runtime_error {
  public:
    explicit CannotDo(const std::string& what) : std::runtime_error(what) {}
};

/// `text` made fit for a column: control characters (TAB, LF, CR, NUL...) become their Unicode pictures, such as U+2409
/// for TAB, and bytes that are not UTF-8 become U+FFFD.
std::string columnText(std::string_view text);

/// Buffered standard output. A failed write, as on a full disk, raises CannotDo.
class Output {
  public:
    explicit Output(int descriptor) : descriptor_(descriptor) {}
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    /// Writes one line: the columns, each through columnText, separated by TABs.
    void record(std::span<const std::string_view> columns);
    void record(std::initializer_list<std::string_view> columns) { record({columns.begin(), columns.size()}); }
    /// Writes `text` unchanged; it must end its own lines.
    void text(std::string_view text);

    void flush();
    /// Flushes and closes. Some file systems report a full disk only at this point.
    void close();

  private:
    void flushIfFull();

    static constexpr std::size_t kBuffer = std::size_t{1} << 16;
    int descriptor_;
    bool used_ = false;
    std::string buffer_;
};

/// Writes "velmarin-cli: " and `text`, made a single line by columnText, to standard error.
void complain(std::string_view text);

} // namespace velmarin
