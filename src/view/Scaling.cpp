#include "view/Scaling.h"

#include "view/ScaleToGrey.h"

#include <utility>
#include <vector>

namespace velmarin {
namespace {

/// The two source pixels that a result pixel lies between, and how near it is to the second, in 1/256.
struct Sample {
    int first = 0;
    int second = 0;
    std::uint32_t nearSecond = 0;
};

/// The position of the centre of pixel d between the centres of source pixels, clamped to the picture's edges.
Sample sampleAt(const Axis& axis, int d, bool smooth) {
    const std::int64_t twice = std::int64_t{2} * axis.result;
    const std::int64_t centre = (std::int64_t{2} * d + 1) * axis.length;
    const int edge = axis.size - 1;
    auto held = [&](std::int64_t pixel) { return static_cast<int>(std::clamp<std::int64_t>(pixel, 0, edge)); };
    if (!smooth) {
        const int pixel = held(centre / twice + axis.start);
        return {pixel, pixel, 0};
    }
    const std::int64_t shifted = centre - axis.result + twice; // one pixel up, so that the quotient is not negative
    const std::int64_t pixel = shifted / twice - 1 + axis.start;
    const auto part = static_cast<std::uint32_t>((shifted % twice * 256 + axis.result) / twice);
    return {held(pixel), held(part == 0 ? pixel : pixel + 1), part};
}

std::uint32_t mixed(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d, std::uint32_t x,
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
            moved_ = moved_ || sample.nearSecond != 0;
        }
        straight_ = !moved_ && wide == samples_.size();
        above_.resize(wide);
        below_.resize(wide);
    }

    void row(int y, std::uint8_t* to) override {
        const Sample lines = sampleAt(y_, y, smooth_);
        if (source_.depth() == 32) {
            writeColour(lines, reinterpret_cast<std::uint32_t*>(to));
        } else {
            writeGrey(lines, to);
        }
    }

  private:
    /// The pixels of a line that are used: grey, or 0xffRRGGBB.
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
        if (straight_ && lines.nearSecond == 0) {
            for (std::size_t i = 0; i < above_.size(); ++i)
                to[i] = static_cast<std::uint8_t>(above_[i]);
            return;
        }
        read(lines.second, below_);
        for (const Sample& s : samples_)
            *to++ = static_cast<std::uint8_t>(mixed(above_[s.first], above_[s.second], below_[s.first],
                                                    below_[s.second], s.nearSecond, lines.nearSecond));
    }

    void writeColour(const Sample& lines, std::uint32_t* to) {
        read(lines.first, above_);
        if (straight_ && lines.nearSecond == 0) {
            std::copy(above_.begin(), above_.end(), to);
            return;
        }
        read(lines.second, below_);
        for (const Sample& s : samples_) {
            std::uint32_t word = 0xff000000u;
            for (int shift = 0; shift <= 16; shift += 8) {
                auto channel = [&](const std::vector<std::uint32_t>& line, int at) { return line[at] >> shift & 0xff; };
                word |= mixed(channel(above_, s.first), channel(above_, s.second), channel(below_, s.first),
                              channel(below_, s.second), s.nearSecond, lines.nearSecond)
                        << shift;
            }
            *to++ = word;
        }
    }

    Picture source_;
    Axis y_;
    bool smooth_;
    bool moved_ = false;    ///< a pixel lies between two source pixels
    bool straight_ = false; ///< the pixels are source pixels, in order
    int first_ = 0;
    std::vector<Sample> samples_;
    std::vector<std::uint32_t> above_, below_;
};

} // namespace

Scaling::Scaling(Picture source, int sx, int sy, int sw, int sh, int width, int height, Smoothing smoothing)
    : source_(std::move(source)), x_{source_.Width(), sx, sw, width}, y_{source_.Height(), sy, sh, height},
      smoothing_(smoothing) {
    if (!x_.usable() || !y_.usable())
        return;
    left_ = x_.begin();
    right_ = x_.end();
    top_ = y_.begin();
    bottom_ = y_.end();
    if (left_ >= right_ || top_ >= bottom_)
        left_ = top_ = right_ = bottom_ = 0;
}

bool Scaling::colour() const {
    return source_.depth() == 32;
}

std::unique_ptr<ScaledRows> Scaling::rows(int x0, int x1) const {
    const bool smaller = x_.result < x_.length || y_.result < y_.length;
    if (smoothing_ == Smoothing::Nearest || !smaller)
        return std::make_unique<SampledRows>(source_, x_, y_, x0, x1, smoothing_ == Smoothing::Smooth);
    if (source_.depth() == 1)
        return scaleToGrey(source_, x_, y_, x0, x1);
    return averageArea(source_, x_, y_, x0, x1);
}

void Scaling::band(int x0, int x1, int y0, int y1, std::uint8_t* to, std::ptrdiff_t stride) const {
    if (x0 >= x1 || y0 >= y1)
        return;
    const std::unique_ptr<ScaledRows> source = rows(x0, x1);
    for (int y = y0; y < y1; ++y)
        source->row(y, to + (y - y0) * stride);
}

} // namespace velmarin
