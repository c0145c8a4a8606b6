#include "cli/LineCheck.h"

#include "files/LineScanner.h"
#include "files/ReadOnlyFile.h"
#include "files/SystemCalls.h"
#include "text/NilObjectException.h"
#include "text/Utf8.h"

#include <cerrno>

namespace velmarin {

namespace {

/// The most that an `ind` may have to be loaded; the other files are far shorter.
constexpr std::uint64_t kLongestCheckedFile = std::uint64_t{1} << 28;

/// The position of the first byte that is not UTF-8, from 1.
std::size_t firstInvalidByte(std::string_view line) {
    std::size_t at = 0;
    while (at < line.size()) {
        const Utf8Unit unit = decodeUtf8(line, at);
        if (unit.value >= kInvalidByteUnit)
            break;
        at += unit.length;
    }
    return at + 1;
}

} // namespace

std::string inQuotes(std::string_view text) {
    return '"' + std::string(text) + '"';
}

std::optional<std::uint64_t>
checkLines(const FolderItem& file, Findings& findings,
           const std::function<void(const std::string& line, std::uint64_t number)>& each) {
    const auto opened = ReadOnlyFile::open(file);
    if (!opened) {
        if (file.regularFile())
            throw NilObjectException("\"" + file.path().native() + "\" could not be read: " + errorInWords(errno));
        findings.push_back({file.path(), 0, "is not a file that can be read"});
        return std::nullopt;
    }
    if (opened->stamp().size > kLongestCheckedFile) {
        findings.push_back({file.path(), 0, "is longer than 256 MiB, and is not read"});
        return std::nullopt;
    }
    std::uint64_t number = 0;
    LineScanner lines(*opened);
    for (std::string_view next; lines.next(next);) {
        const std::string line(next);
        ++number;
        if (!isValidUtf8(line))
            findings.push_back(
                {file.path(), number, "is not UTF-8 from byte " + std::to_string(firstInvalidByte(line)) + " on"});
        if (line.size() >= LineScanner::kLongestLine)
            findings.push_back({file.path(), number, "is 16 MiB long or longer; only the first 16 MiB are read"});
        each(line, number);
    }
    return number;
}

} // namespace velmarin
