#include "store/HeadwordIndex.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>
#include <limits>

namespace velmarin {

namespace {

constexpr std::size_t kMost = std::numeric_limits<std::uint32_t>::max();

/// The first position in [0, size) for which `greater` holds, given that it holds for all after it; else `size`.
template <typename Greater> std::size_t firstWhere(std::size_t size, Greater greater) {
    std::size_t low = 0;
    while (low < size) {
        const std::size_t middle = low + (size - low) / 2;
        if (greater(middle))
            size = middle;
        else
            low = middle + 1;
    }
    return low;
}

/// The first bytes of a word as a number, filled up with zeros: a word with a smaller number sorts before one with a
/// greater. `end` is how far may be read.
std::uint64_t leadingBytes(std::string_view word, const char* end) {
    constexpr std::size_t kBytes = sizeof(std::uint64_t);
    const std::size_t length = std::min(word.size(), kBytes);
    std::uint64_t number = 0;
    if (end - word.data() < std::ptrdiff_t{kBytes})
        std::memcpy(&number, word.data(), length);
    else
        std::memcpy(&number, word.data(), kBytes);
    const std::uint64_t bigEndian = std::endian::native == std::endian::big ? number : __builtin_bswap64(number);
    return length == 0 ? 0 : bigEndian >> 8 * (kBytes - length) << 8 * (kBytes - length);
}

/// Gives back room that is not used, if it is worth a copy.
template <typename Container> void trim(Container& container) {
    if (container.capacity() - container.size() > container.size() / 8)
        container.shrink_to_fit();
}

} // namespace

HeadwordIndex::HeadwordIndex(IndexWords words) : words_(std::move(words)), sorted_(inOrder()) {
    finish();
}

bool HeadwordIndex::inOrder() const {
    const char* const end = words_.text.data() + words_.text.size();
    std::uint64_t before = 0;
    for (std::size_t i = 0; i < size(); ++i) {
        const std::string_view word = (*this)[i];
        const std::uint64_t leading = leadingBytes(word, end);
        if (leading < before || (leading == before && i > 0 && word < (*this)[i - 1]))
            return false;
        before = leading;
    }
    return true;
}

bool HeadwordIndex::append(std::string_view word) {
    if (word.size() > kMost - words_.text.size() || words_.ends.size() == kMost)
        return false;
    if (!words_.ends.empty() && word < (*this)[size() - 1])
        sorted_ = false;
    words_.text.append(word);
    words_.ends.push_back(static_cast<std::uint32_t>(words_.text.size()));
    return true;
}

void HeadwordIndex::finish() {
    trim(words_.text);
    trim(words_.ends);
    greatestSoFar_.clear();
    if (sorted_)
        return;
    std::uint32_t greatest = 0;
    for (std::uint32_t i = 0; i < size(); ++i) {
        if ((*this)[greatest] < (*this)[i])
            greatest = i;
        if (i % kBlock == kBlock - 1)
            greatestSoFar_.push_back(greatest);
    }
}

std::size_t HeadwordIndex::size() const {
    return words_.ends.size();
}

std::string_view HeadwordIndex::operator[](std::size_t i) const {
    const std::size_t begin = i == 0 ? 0 : words_.ends[i - 1];
    return std::string_view(words_.text).substr(begin, words_.ends[i] - begin);
}

std::size_t HeadwordIndex::firstGreater(std::string_view word) const {
    if (sorted_)
        return firstWhere(size(), [&](std::size_t i) { return word < (*this)[i]; });
    std::size_t i = kBlock * firstWhere(greatestSoFar_.size(),
                                        [&](std::size_t block) { return word < (*this)[greatestSoFar_[block]]; });
    while (i < size() && !(word < (*this)[i]))
        ++i;
    return i;
}

} // namespace velmarin
