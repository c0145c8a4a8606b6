#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace velmarin {

/// The exit status of velmarin-cli.
enum class Status : int {
    Done = 0,
    NothingFound = 1, ///< for `check`: problems found
    CouldNot = 2
};

/// `text` made fit for a column: control characters (TAB, LF, CR, NUL...) become their Unicode pictures, such as U+2409
/// for TAB, and bytes that are not UTF-8 become U+FFFD.
std::string columnText(std::string_view text);

/// Buffered standard output. After a failed write, as on a full disk, it takes no more.
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
    /// Flushes and closes. Some file systems report a full disk only at this point. False if anything was not written.
    bool close();
    bool failed() const { return error_ != 0; }
    /// Why a write failed.
    std::string reason() const;

  private:
    void flushIfFull();

    static constexpr std::size_t kBuffer = std::size_t{1} << 16;
    int descriptor_;
    int error_ = 0; ///< of the first write that failed
    bool used_ = false;
    std::string buffer_;
};

/// Writes "velmarin-cli: " and `text`, made a single line by columnText, to standard error.
void complain(std::string_view text);

} // namespace velmarin
