#include "view/Scaling.h"

#include "view/AreaAverage.h"
#include "view/PixelSampling.h"
#include "view/ScaleToGrey.h"

#include <utility>

namespace velmarin {

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

bool Scaling::inColor() const {
    return source_.depth() == 32;
}

std::unique_ptr<ScaledRows> Scaling::rows(int x0, int x1) const {
    const bool smaller = x_.result < x_.length || y_.result < y_.length;
    if (smoothing_ == Smoothing::Nearest || !smaller)
        return samplePixels(source_, x_, y_, x0, x1, smoothing_ == Smoothing::Smooth);
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
