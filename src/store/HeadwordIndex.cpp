#include "store/HeadwordIndex.h"

#include <algorithm>
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

} // namespace

void HeadwordIndex::reserve(std::size_t entries, std::size_t bytes) {
    ends_.reserve(std::min(entries, kMost));
    text_.reserve(std::min(bytes, kMost));
}

bool HeadwordIndex::append(std::string_view word) {
    if (word.size() > kMost - text_.size() || ends_.size() == kMost)
        return false;
    if (!ends_.empty() && word < (*this)[size() - 1])
        sorted_ = false;
    text_.append(word);
    ends_.push_back(static_cast<std::uint32_t>(text_.size()));
    return true;
}

void HeadwordIndex::finish() {
    text_.shrink_to_fit();
    ends_.shrink_to_fit();
    runningMaximum_.clear();
    if (sorted_)
        return;
    runningMaximum_.resize(size());
    std::uint32_t greatest = 0;
    for (std::uint32_t i = 0; i < runningMaximum_.size(); ++i) {
        if ((*this)[greatest] < (*this)[i])
            greatest = i;
        runningMaximum_[i] = greatest;
    }
}

std::size_t HeadwordIndex::size() const {
    return ends_.size();
}

std::string_view HeadwordIndex::operator[](std::size_t i) const {
    const std::size_t begin = i == 0 ? 0 : ends_[i - 1];
    return std::string_view(text_).substr(begin, ends_[i] - begin);
}

std::size_t HeadwordIndex::firstGreater(std::string_view word) const {
    if (sorted_)
        return firstWhere(size(), [&](std::size_t i) { return word < (*this)[i]; });
    return firstWhere(runningMaximum_.size(), [&](std::size_t i) { return word < (*this)[runningMaximum_[i]]; });
}

} // namespace velmarin
