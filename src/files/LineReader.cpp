#include "files/LineReader.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>

namespace velmarin {

namespace {

/// The first LF or CR, or `end`. Looks through pieces, so that a text without one of them is not searched
/// through for it at every line.
const char* findLineEnd(const char* at, const char* end) {
    constexpr std::ptrdiff_t kPiece = 256;
    while (at < end) {
        const char* stop = at + std::min(kPiece, end - at);
        const auto find = [&](char c) {
            const void* found = std::memchr(at, c, static_cast<std::size_t>(stop - at));
            return found != nullptr ? static_cast<const char*>(found) : stop;
        };
        const char* lineFeed = find('\n');
        const char* pieceEnd = std::exchange(stop, lineFeed);
        const char* first = find('\r');
        if (first < pieceEnd)
            return first;
        at = pieceEnd;
    }
    return end;
}

} // namespace

LineReader::LineReader(std::string_view text) : text_(text) {
    if (text_.starts_with(kByteOrderMark))
        at_ = kByteOrderMark.size();
}

std::string_view LineReader::ReadLine() {
    if (at_ >= text_.size())
        return {};
    const std::size_t begin = at_;
    const char* all = text_.data();
    const auto end = static_cast<std::size_t>(findLineEnd(all + begin, all + text_.size()) - all);
    at_ = end;
    if (at_ < text_.size()) {
        const bool pair = text_[at_] == '\r' && at_ + 1 < text_.size() && text_[at_ + 1] == '\n';
        at_ += pair ? 2 : 1;
    }
    return text_.substr(begin, end - begin);
}

} // namespace velmarin
