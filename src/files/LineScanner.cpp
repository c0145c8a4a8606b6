#include "files/LineScanner.h"

#include "files/LineReader.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace velmarin {

LineScanner::LineScanner(const ReadOnlyFile& file, std::uint64_t offset, std::size_t piece)
    : file_(file), piece_(piece), window_(piece), readTo_(offset) {
    refill();
    if (offset == 0 && std::string_view(window_.data(), filled_).starts_with(kByteOrderMark))
        at_ = nextLf_ = nextCr_ = kByteOrderMark.size();
}

bool LineScanner::refill() {
    if (ended_)
        return false;
    std::copy(window_.begin() + static_cast<std::ptrdiff_t>(at_),
              window_.begin() + static_cast<std::ptrdiff_t>(filled_), window_.begin());
    nextLf_ -= std::min(at_, nextLf_);
    nextCr_ -= std::min(at_, nextCr_);
    filled_ -= at_;
    at_ = 0;
    if (window_.size() - filled_ < piece_)
        window_.resize(std::min(window_.size() * 2, kLongestLine + 2 * kWindow));
    const std::size_t got = file_.readOrRaise(readTo_, window_.data() + filled_, window_.size() - filled_);
    readTo_ += got;
    filled_ += got;
    ended_ = got == 0;
    return !ended_;
}

std::size_t LineScanner::find(char wanted, std::size_t& known) const {
    const std::size_t from = std::max(at_, known);
    const void* found = from < filled_ ? std::memchr(window_.data() + from, wanted, filled_ - from) : nullptr;
    known = found == nullptr ? filled_ : static_cast<std::size_t>(static_cast<const char*>(found) - window_.data());
    return known;
}

bool LineScanner::next(std::string_view& line) {
    for (;;) {
        const std::size_t end = std::min(find('\n', nextLf_), find('\r', nextCr_));
        // A CR at the end of the window may have its LF after it.
        const bool whole = end < filled_ && (window_[end] == '\n' || end + 1 < filled_);
        if (whole || (ended_ && at_ < filled_)) {
            line = std::string_view(window_.data() + at_, std::min(end - at_, kLongestLine));
            at_ = end;
            if (at_ < filled_)
                at_ += window_[at_] == '\r' && at_ + 1 < filled_ && window_[at_ + 1] == '\n' ? 2 : 1;
            return true;
        }
        if (ended_)
            return false;
        if (filled_ - at_ > kLongestLine + kWindow) {
            filled_ = at_ + kLongestLine;
            nextLf_ = std::min(nextLf_, filled_);
            nextCr_ = std::min(nextCr_, filled_);
        }
        refill();
    }
}

} // namespace velmarin
