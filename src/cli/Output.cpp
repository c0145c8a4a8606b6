#include "cli/Output.h"

#include "files/SystemCalls.h"
#include "text/Utf8.h"

#include <cerrno>

#include <unistd.h>

namespace velmarin {

namespace {

constexpr char32_t kControlPictures = 0x2400;
constexpr char32_t kDelete = 0x7F;
constexpr char32_t kDeletePicture = 0x2421;
constexpr char32_t kReplacement = 0xFFFD;

char32_t shown(char32_t unit) {
    if (unit < ' ')
        return kControlPictures + unit;
    if (unit == kDelete)
        return kDeletePicture;
    return unit >= kInvalidByteUnit ? kReplacement : unit;
}

void appendColumn(std::string& to, std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const Utf8Unit unit = decodeUtf8(text, at);
        appendUtf8(to, shown(unit.value));
        at += unit.length;
    }
}

} // namespace

std::string columnText(std::string_view text) {
    std::string result;
    appendColumn(result, text);
    return result;
}

void Output::record(std::span<const std::string_view> columns) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (i > 0)
            buffer_ += '\t';
        appendColumn(buffer_, columns[i]);
    }
    buffer_ += '\n';
    flushIfFull();
}

void Output::text(std::string_view text) {
    buffer_ += text;
    flushIfFull();
}

void Output::flushIfFull() {
    if (buffer_.size() >= kBuffer)
        flush();
}

void Output::flush() {
    if (buffer_.empty() || failed())
        return;
    used_ = true;
    if (!writeAll(descriptor_, buffer_))
        error_ = errno;
    buffer_.clear();
}

bool Output::close() {
    flush();
    // Without any output it does not matter whether standard output was open.
    if (::close(descriptor_) != 0 && used_ && !failed())
        error_ = errno;
    return !failed();
}

std::string Output::reason() const {
    return errorInWords(error_);
}

void complain(std::string_view text) {
    writeAll(STDERR_FILENO, "velmarin-cli: " + columnText(text) + "\n");
}

} // namespace velmarin
