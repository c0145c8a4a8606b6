#include "cli/ReadingReport.h"

#include "cli/Output.h"
#include "files/SystemCalls.h"
#include "text/NumberText.h"

#include <string_view>

#include <unistd.h>

namespace velmarin {

namespace {

constexpr std::chrono::minutes kBetweenNotes(1);

void write(std::string_view text) {
    writeAll(STDERR_FILENO, text);
}

std::string counted(std::int64_t number, const char* unit) {
    return Str(number) + " " + unit + (number == 1 ? "" : "s");
}

} // namespace

std::string inWords(const ReadingProgress& progress) {
    std::string text = Str(static_cast<std::int64_t>(progress.done)) + " of " +
                       counted(static_cast<std::int64_t>(progress.of), "page");
    if (!progress.left)
        return text;
    const std::int64_t seconds = progress.left->count();
    constexpr std::int64_t kMinute = 60;
    return text + ", " +
           (seconds < kMinute ? counted(seconds, "second") : counted((seconds + kMinute / 2) / kMinute, "minute")) +
           " left";
}

ReadingReport::ReadingReport() : terminal_(::isatty(STDERR_FILENO) == 1), noted_(std::chrono::steady_clock::now()) {}

ReadingReport::~ReadingReport() {
    if (lineOpen_)
        write("\n");
}

void ReadingReport::show(const ReadingProgress& progress) {
    const auto now = std::chrono::steady_clock::now();
    if (terminal_) {
        lineOpen_ = true;
        write("\r\033[K" + inWords(progress));
    } else if (now - noted_ >= kBetweenNotes) {
        noted_ = now;
        complain(inWords(progress));
    }
}

} // namespace velmarin
