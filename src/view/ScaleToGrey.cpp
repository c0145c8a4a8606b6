#include "view/ScaleToGrey.h"

#include "view/ProcessorClones.h"

#include <bit>
#include <vector>

namespace velmarin {
namespace {

/// The left border of a result pixel: the source pixel that it crosses, and the number of source pixels from that one
/// to the one that the next border crosses.
struct Border {
    std::uint32_t word = 0; ///< index of the word, from the first word used
    std::uint8_t shift = 0; ///< of the pixel in the word
    std::uint32_t count = 0;
    std::uint32_t fraction = 0; ///< position in the pixel, in units of Axis
};

/// For each border, adds the ink from its pixel up to the next border's pixel to the low half of `sums`, and the ink of
/// its own pixel to the high half. `pairs` holds each word of the line joined with the word after it. Counts are at
/// most 32.
VELMARIN_CLONES("popcnt")
void countNarrow(const std::uint64_t* pairs, const Border* borders, std::size_t size, std::uint64_t* sums) {
    for (std::size_t k = 0; k < size; ++k) {
        const std::uint64_t bits = pairs[borders[k].word] << borders[k].shift;
        const std::uint64_t ink = (bits >> 1) >> (63 - borders[k].count);
        sums[k] += static_cast<std::uint64_t>(__builtin_popcountll(ink)) + ((bits >> 63) << 32);
    }
}

/// The same for counts of any size.
VELMARIN_CLONES("popcnt")
void countWide(const std::uint64_t* pairs, const Border* borders, std::size_t size, std::uint64_t* sums) {
    for (std::size_t k = 0; k < size; ++k) {
        std::uint64_t ink = 0;
        std::uint32_t left = borders[k].count;
        std::uint32_t word = borders[k].word;
        std::uint64_t bits = pairs[word] << borders[k].shift;
        const std::uint64_t own = bits >> 63;
        while (left > 32) {
            ink += static_cast<std::uint64_t>(__builtin_popcountll(bits >> 32));
            left -= 32;
            bits = pairs[++word] << borders[k].shift;
        }
        ink += static_cast<std::uint64_t>(__builtin_popcountll((bits >> 1) >> (63 - left)));
        sums[k] += ink + (own << 32);
    }
}

class GreyRows : public ScaledRows {
  public:
    GreyRows(const Picture& source, const Axis& x, const Axis& y, int x0, int x1)
        : source_(source), x_(x), y_(y), size_(static_cast<std::size_t>(x1 - x0)) {
        const int firstPixel = x.pixelAt(x.bound(x0));
        firstWord_ = firstPixel / 32;
        for (int d = x0; d <= x1; ++d) {
            const int pixel = x.pixelAt(x.bound(d));
            const int next = d < x1 ? x.pixelAt(x.bound(d + 1)) : pixel;
            Border border;
            border.word = static_cast<std::uint32_t>(pixel / 32 - firstWord_);
            border.shift = static_cast<std::uint8_t>(pixel % 32);
            border.count = static_cast<std::uint32_t>(next - pixel);
            border.fraction = static_cast<std::uint32_t>(x.fractionAt(x.bound(d)));
            narrow_ = narrow_ && border.count <= 32;
            borders_.push_back(border);
            if (d < x1)
                widths_.push_back(static_cast<std::uint64_t>(x.bound(d + 1) - x.bound(d)));
        }
        wordsInLine_ = (source.Width() + 31) / 32 - firstWord_;
        wordPairs_.resize(borders_.back().word + 2);
        sums_.resize(borders_.size());
        ink_.resize(size_);
    }

    void row(int y, std::uint8_t* to) override {
        const std::int64_t from = y_.bound(y);
        const std::int64_t until = y_.bound(y + 1);
        const int last = y_.pixelAt(until);
        int line = y_.pixelAt(from);
        std::fill(ink_.begin(), ink_.end(), 0);
        if (line == last) {
            addLines(line, line + 1, static_cast<std::uint64_t>(until - from));
        } else {
            if (const int fraction = y_.fractionAt(from); fraction > 0) {
                addLines(line, line + 1, static_cast<std::uint64_t>(y_.result - fraction));
                ++line;
            }
            addLines(line, last, static_cast<std::uint64_t>(y_.result));
            if (const int fraction = y_.fractionAt(until); fraction > 0)
                addLines(last, last + 1, static_cast<std::uint64_t>(fraction));
        }
        const auto height = static_cast<std::uint64_t>(until - from);
        for (std::size_t k = 0; k < size_; ++k) {
            const std::uint64_t area = widths_[k] * height;
            to[k] = roundedMean(255 * (area - ink_[k]), area);
        }
    }

  private:
    void addLines(int begin, int end, std::uint64_t weight) {
        if (begin >= end)
            return;
        std::fill(sums_.begin(), sums_.end(), 0);
        for (int line = begin; line < end; ++line) {
            makeWordPairs(source_.row(line) + firstWord_);
            if (narrow_)
                countNarrow(wordPairs_.data(), borders_.data(), borders_.size(), sums_.data());
            else
                countWide(wordPairs_.data(), borders_.data(), borders_.size(), sums_.data());
        }
        const auto unit = static_cast<std::uint64_t>(x_.result);
        for (std::size_t k = 0; k < size_; ++k) {
            const std::uint64_t whole = sums_[k] & 0xffffffffu;
            const std::uint64_t before = (sums_[k] >> 32) * borders_[k].fraction;
            const std::uint64_t after = (sums_[k + 1] >> 32) * borders_[k + 1].fraction;
            ink_[k] += weight * (unit * whole + after - before);
        }
    }

    void makeWordPairs(const std::uint32_t* words) {
        const std::size_t have = std::min(wordPairs_.size(), static_cast<std::size_t>(wordsInLine_));
        for (std::size_t i = 0; i + 1 < have; ++i)
            wordPairs_[i] = std::uint64_t{words[i]} << 32 | words[i + 1];
        if (have > 0)
            wordPairs_[have - 1] = std::uint64_t{words[have - 1]} << 32 |
                                   (have < static_cast<std::size_t>(wordsInLine_) ? words[have] : 0);
    }

    Picture source_;
    Axis x_, y_;
    std::size_t size_;
    int firstWord_ = 0;
    int wordsInLine_ = 0;
    bool narrow_ = true;
    std::vector<Border> borders_; ///< one more than result pixels
    std::vector<std::uint64_t> widths_;
    std::vector<std::uint64_t> wordPairs_;
    std::vector<std::uint64_t> sums_;
    std::vector<std::uint64_t> ink_; ///< in units of both axes
};

} // namespace

std::unique_ptr<ScaledRows> scaleToGrey(const Picture& source, const Axis& x, const Axis& y, int x0, int x1) {
    return std::make_unique<GreyRows>(source, x, y, x0, x1);
}

} // namespace velmarin
