#include "view/AreaAverage.h"

#include "view/ProcessorClones.h"

#include <bit>
#include <vector>

namespace velmarin {
namespace {

VELMARIN_CLONES("avx2")
void addBytes(const std::uint8_t* bytes, std::size_t size, std::uint16_t* sums) {
    for (std::size_t i = 0; i < size; ++i)
        sums[i] = static_cast<std::uint16_t>(sums[i] + bytes[i]);
}

VELMARIN_CLONES("avx2")
void addWeighted(const std::uint16_t* values, std::size_t size, std::uint32_t weight, std::uint32_t* sums) {
    for (std::size_t i = 0; i < size; ++i)
        sums[i] += weight * values[i];
}

VELMARIN_CLONES("avx2")
void addWeightedBytes(const std::uint8_t* bytes, std::size_t size, std::uint32_t weight, std::uint32_t* sums) {
    for (std::size_t i = 0; i < size; ++i)
        sums[i] += weight * bytes[i];
}

/// The border between two result pixels, and the width of the pixel that begins there.
struct Border {
    std::uint32_t pixel = 0;
    std::uint32_t fraction = 0;
    std::uint64_t width = 0;
};

class AveragedRows : public ScaledRows {
  public:
    AveragedRows(const Picture& source, const Axis& x, const Axis& y, int x0, int x1)
        : source_(source), x_(x), y_(y), channels_(source.depth() == 32 ? 4 : 1),
          size_(static_cast<std::size_t>(x1 - x0)) {
        const int pixelsInWord = 4 / channels_;
        firstWord_ = x.pixelAt(x.bound(x0)) / pixelsInWord;
        for (int d = x0; d <= x1; ++d) {
            Border border;
            border.pixel = static_cast<std::uint32_t>(x.pixelAt(x.bound(d)) - firstWord_ * pixelsInWord);
            border.fraction = static_cast<std::uint32_t>(x.fractionAt(x.bound(d)));
            border.width = static_cast<std::uint64_t>(x.bound(std::min(d + 1, x1)) - x.bound(d));
            borders_.push_back(border);
        }
        const int lastPixel = std::min(x.pixelAt(x.bound(x1)), source.Width() - 1);
        lineBytes_ = static_cast<std::size_t>(lastPixel / pixelsInWord - firstWord_ + 1) * 4;
        columnSums_.resize(lineBytes_ + 4);
        wholeLines_.resize(lineBytes_);
    }

    void row(int y, std::uint8_t* to) override {
        const std::int64_t from = y_.bound(y);
        const std::int64_t until = y_.bound(y + 1);
        const int last = y_.pixelAt(until);
        int line = y_.pixelAt(from);
        std::fill(columnSums_.begin(), columnSums_.end(), 0);
        if (line == last) {
            addLine(line, until - from);
        } else {
            if (const int fraction = y_.fractionAt(from); fraction > 0)
                addLine(line++, y_.result - fraction);
            addWholeLines(line, last);
            if (const int fraction = y_.fractionAt(until); fraction > 0)
                addLine(last, fraction);
        }
        const auto height = static_cast<std::uint64_t>(until - from);
        if (channels_ == 1)
            writeMeans<1>(height, to);
        else
            writeMeans<4>(height, to);
    }

  private:
    static constexpr int kLinesIn16Bits = 257; // 257 * 255 fits 16 bits

    const std::uint8_t* bytesOf(int line) const {
        return reinterpret_cast<const std::uint8_t*>(source_.row(line) + firstWord_);
    }

    void addLine(int line, std::int64_t weight) {
        addWeightedBytes(bytesOf(line), lineBytes_, static_cast<std::uint32_t>(weight), columnSums_.data());
    }

    void addWholeLines(int begin, int end) {
        while (begin < end) {
            const int stop = std::min(end, begin + kLinesIn16Bits);
            std::fill(wholeLines_.begin(), wholeLines_.end(), 0);
            for (; begin < stop; ++begin)
                addBytes(bytesOf(begin), lineBytes_, wholeLines_.data());
            addWeighted(wholeLines_.data(), lineBytes_, static_cast<std::uint32_t>(y_.result), columnSums_.data());
        }
    }

    /// The index of a pixel's byte: Leptonica's words hold the leftmost or the red byte in the highest bits.
    template <int Channels> static std::size_t byteIndex(std::size_t pixel, std::size_t channel) {
        constexpr std::size_t flip = std::endian::native == std::endian::little ? 3 : 0;
        return (pixel * Channels + channel) ^ flip;
    }

    template <int Channels> std::uint64_t sumBetween(const Border& a, const Border& b, std::size_t channel) const {
        std::uint64_t whole = 0;
        for (std::size_t p = a.pixel; p < b.pixel; ++p)
            whole += columnSums_[byteIndex<Channels>(p, channel)];
        return whole * static_cast<std::uint64_t>(x_.result) +
               std::uint64_t{columnSums_[byteIndex<Channels>(b.pixel, channel)]} * b.fraction -
               std::uint64_t{columnSums_[byteIndex<Channels>(a.pixel, channel)]} * a.fraction;
    }

    template <int Channels> void writeMeans(std::uint64_t height, std::uint8_t* to) const {
        auto* words = reinterpret_cast<std::uint32_t*>(to);
        for (std::size_t k = 0; k < size_; ++k) {
            const std::uint64_t area = borders_[k].width * height;
            auto mean = [&](std::size_t channel) {
                return std::uint32_t{roundedMean(sumBetween<Channels>(borders_[k], borders_[k + 1], channel), area)};
            };
            if constexpr (Channels == 1)
                to[k] = static_cast<std::uint8_t>(mean(0));
            else
                words[k] = 0xff000000u | mean(0) << 16 | mean(1) << 8 | mean(2);
        }
    }

    Picture source_;
    Axis x_, y_;
    int channels_;
    std::size_t size_;
    int firstWord_ = 0;
    std::size_t lineBytes_ = 0;   ///< from the first to the last pixel used of a line, in whole words
    std::vector<Border> borders_; ///< one more than result pixels
    std::vector<std::uint32_t> columnSums_;
    std::vector<std::uint16_t> wholeLines_; ///< sums of up to kLinesIn16Bits lines
};

} // namespace

std::unique_ptr<ScaledRows> averageArea(const Picture& source, const Axis& x, const Axis& y, int x0, int x1) {
    return std::make_unique<AveragedRows>(source, x, y, x0, x1);
}

} // namespace velmarin
