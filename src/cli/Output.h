#pragma once

#include <cstddef>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace velmarin {

/// What a run of velmarin-cli tells by its exit status.
enum class Status : int {
    Done = 0,
    NothingFound = 1, ///< Or, of `check`, problems were.
    CouldNot = 2
};

/// Ends the run with Status::CouldNot; `what()` is the line for standard error, without the program's name.
class CannotDo : public std::runtime_error {
  public:
    explicit CannotDo(const std::string& what) : std::runtime_error(what) {}
};

/// `text` as it can stand in a column: a control character (TAB, LF, CR, NUL...) as its Unicode picture, such as U+2409
/// for TAB, and a byte that is not UTF-8 as U+FFFD.
std::string columnText(std::string_view text);

/// Standard output, buffered. What cannot be written, on a full disk or into a closed pipe, raises CannotDo.
class Output {
  public:
    explicit Output(int descriptor) : descriptor_(descriptor) {}
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    /// One line: the columns, made fit by columnText, with a TAB between each two.
    void record(std::span<const std::string_view> columns);
    void record(std::initializer_list<std::string_view> columns) { record({columns.begin(), columns.size()}); }
    /// `text`, which ends its lines itself, as it stands.
    void text(std::string_view text);

    void flush();
    /// Flushes and closes: some file systems tell only now that the disk is full.
    void close();

  private:
    void flushWhereFull();

    static constexpr std::size_t kBuffer = std::size_t{1} << 16;
    int descriptor_;
    bool used_ = false;
    std::string buffer_;
};

/// Writes "velmarin-cli: " and `text`, made one line by columnText, to standard error.
void complain(std::string_view text);

} // namespace velmarin
