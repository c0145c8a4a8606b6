#include "cli/Words.h"

#include "files/LineReader.h"
#include "files/SystemCalls.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include <unistd.h>

namespace velmarin {

namespace {

constexpr std::size_t kWindow = std::size_t{1} << 16;

} // namespace

Words::Words(std::vector<std::string> given, Session& session)
    : given_(std::move(given)), fromInput_(given_.empty()), session_(session) {}

std::optional<std::string> Words::next() {
    if (fromInput_)
        return nextLine();
    if (nextGiven_ == given_.size() || session_.out().failed())
        return std::nullopt;
    return given_[nextGiven_++];
}

std::optional<std::string> Words::nextLine() {
    std::string word;
    bool ended = false;
    while (!ended && (at_ < buffer_.size() || refill())) {
        if (std::exchange(skipLineFeed_, false) && buffer_[at_] == '\n') {
            ++at_;
            continue;
        }
        const std::size_t end = std::min(buffer_.find_first_of("\r\n", at_), buffer_.size());
        word.append(buffer_, at_, end - at_);
        if (word.size() > kLongestWord) {
            session_.couldNot("standard input: a line is longer than a megabyte");
            return std::nullopt;
        }
        ended = end < buffer_.size();
        skipLineFeed_ = ended && buffer_[end] == '\r';
        at_ = ended ? end + 1 : end;
    }
    if (!std::exchange(started_, true) && word.starts_with(kByteOrderMark))
        word.erase(0, kByteOrderMark.size());
    return !broken_ && (ended || !word.empty()) ? std::optional(std::move(word)) : std::nullopt;
}

bool Words::refill() {
    session_.out().flush();
    if (session_.out().failed())
        return false;
    buffer_.resize(kWindow);
    at_ = 0;
    ssize_t got = 0;
    do
        got = ::read(STDIN_FILENO, buffer_.data(), buffer_.size());
    while (got < 0 && errno == EINTR);
    const int error = errno;
    buffer_.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    broken_ = got < 0;
    if (broken_)
        session_.couldNot("standard input: " + errorInWords(error));
    return got > 0;
}

} // namespace velmarin
