#include "view/PixelSampling.h"

#include <algorithm>
#include <vector>

namespace velmarin {
namespace {

/// The two source pixels on either side of a result pixel, and the weight of the second in 1/256.
struct Sample {
    int first = 0;
    int second = 0;
    std::uint32_t weight = 0;
};

/// Where the center of result pixel d lies between centers of source pixels, clamped to the picture's edges.
Sample sampleAt(const Axis& axis, int d, bool smooth) {
    const std::int64_t twice = std::int64_t{2} * axis.result;
    const std::int64_t center = (std::int64_t{2} * d + 1) * axis.length;
    const int edge = axis.size - 1;
    auto clamped = [&](std::int64_t pixel) { return static_cast<int>(std::clamp<std::int64_t>(pixel, 0, edge)); };
    if (!smooth) {
        const int pixel = clamped(center / twice + axis.start);
        return {pixel, pixel, 0};
    }
    const std::int64_t shifted = center - axis.result + twice; // one pixel more, so that the quotient is not negative
    const std::int64_t pixel = shifted / twice - 1 + axis.start;
    const auto part = static_cast<std::uint32_t>((shifted % twice * 256 + axis.result) / twice);
    return {clamped(pixel), clamped(part == 0 ? pixel : pixel + 1), part};
}

std::uint32_t interpolated(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d, std::uint32_t x,
                           std::uint32_t y) {
    const std::uint32_t above = a * (256 - x) + b * x;
    const std::uint32_t below = c * (256 - x) + d * x;
    return (above * (256 - y) + below * y + 0x8000u) >> 16;
}

class SampledRows : public ScaledRows {
  public:
    SampledRows(const Picture& source, const Axis& x, const Axis& y, int x0, int x1, bool smooth)
        : source_(source), y_(y), smooth_(smooth) {
        for (int d = x0; d < x1; ++d)
            samples_.push_back(sampleAt(x, d, smooth));
        first_ = samples_.front().first;
        const auto wide = static_cast<std::size_t>(samples_.back().second - first_) + 1;
        for (Sample& sample : samples_) {
            sample.first -= first_;
            sample.second -= first_;
            interpolates_ = interpolates_ || sample.weight != 0;
        }
        copies_ = !interpolates_ && wide == samples_.size();
        above_.resize(wide);
        below_.resize(wide);
    }

    void row(int y, std::uint8_t* to) override {
        const Sample lines = sampleAt(y_, y, smooth_);
        if (source_.depth() == 32) {
            writeColor(lines, reinterpret_cast<std::uint32_t*>(to));
        } else {
            writeGrey(lines, to);
        }
    }

  private:
    /// Reads the pixels of a line that are needed: grey, or 0xffRRGGBB.
    void read(int line, std::vector<std::uint32_t>& to) const {
        const std::uint32_t* words = source_.row(line);
        const int depth = source_.depth();
        const std::size_t size = to.size();
        auto at = static_cast<std::size_t>(first_);
        if (depth == 32) {
            for (std::size_t i = 0; i < size; ++i)
                to[i] = 0xff000000u | words[at + i] >> 8;
        } else if (depth == 8) {
            for (std::size_t i = 0; i < size; ++i, ++at)
                to[i] = words[at >> 2] >> (24 - 8 * (at & 3)) & 0xff;
        } else {
            for (std::size_t i = 0; i < size; ++i, ++at)
                to[i] = (words[at >> 5] >> (31 - (at & 31)) & 1) != 0 ? 0 : 255;
        }
    }

    void writeGrey(const Sample& lines, std::uint8_t* to) {
        read(lines.first, above_);
        if (copies_ && lines.weight == 0) {
            for (std::size_t i = 0; i < above_.size(); ++i)
                to[i] = static_cast<std::uint8_t>(above_[i]);
            return;
        }
        read(lines.second, below_);
        for (const Sample& s : samples_)
            *to++ = static_cast<std::uint8_t>(interpolated(above_[s.first], above_[s.second], below_[s.first],
                                                           below_[s.second], s.weight, lines.weight));
    }

    void writeColor(const Sample& lines, std::uint32_t* to) {
        read(lines.first, above_);
        if (copies_ && lines.weight == 0) {
            std::copy(above_.begin(), above_.end(), to);
            return;
        }
        read(lines.second, below_);
        for (const Sample& s : samples_) {
            std::uint32_t word = 0xff000000u;
            for (int shift = 0; shift <= 16; shift += 8) {
                auto channel = [&](const std::vector<std::uint32_t>& line, int at) { return line[at] >> shift & 0xff; };
                word |= interpolated(channel(above_, s.first), channel(above_, s.second), channel(below_, s.first),
                                     channel(below_, s.second), s.weight, lines.weight)
                        << shift;
            }
            *to++ = word;
        }
    }

    Picture source_;
    Axis y_;
    bool smooth_;
    bool interpolates_ = false; ///< some result pixel lies between two source pixels
    bool copies_ = false;       ///< the result pixels are successive source pixels
    int first_ = 0;
    std::vector<Sample> samples_;
    std::vector<std::uint32_t> above_, below_;
};

} // namespace

std::unique_ptr<ScaledRows> samplePixels(const Picture& source, const Axis& x, const Axis& y, int x0, int x1,
                                         bool smooth) {
    return std::make_unique<SampledRows>(source, x, y, x0, x1, smooth);
}

} // namespace velmarin
