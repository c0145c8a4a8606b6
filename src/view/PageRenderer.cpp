#include "view/PageRenderer.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace velmarin {
namespace {

std::ptrdiff_t aligned(std::ptrdiff_t bytes) {
    return (bytes + 3) / 4 * 4;
}

int rounded(double value) {
    return static_cast<int>(std::lround(std::clamp(value, -1e9, 1e9)));
}

/// The target rectangle in device pixels. Edges are rounded, so neighbors on the control are neighbors on the screen.
DeviceRect scaled(const PictureDrawn& d, double scale) {
    const int left = rounded(d.x * scale), top = rounded(d.y * scale);
    return {left, top, rounded((static_cast<double>(d.x) + d.w) * scale) - left,
            rounded((static_cast<double>(d.y) + d.h) * scale) - top};
}

/// The part of a scaling placed at left, top that is inside `clip` and `bounds`.
DeviceRect visible(const Scaling& scaling, int left, int top, const DeviceRect& bounds, const DeviceRect& clip) {
    const std::int64_t x0 = std::max<std::int64_t>({std::int64_t{left} + scaling.left(), bounds.x, clip.x});
    const std::int64_t y0 = std::max<std::int64_t>({std::int64_t{top} + scaling.top(), bounds.y, clip.y});
    const std::int64_t x1 =
        std::min<std::int64_t>({std::int64_t{left} + scaling.right(), std::int64_t{bounds.x} + bounds.width,
                                std::int64_t{clip.x} + clip.width});
    const std::int64_t y1 =
        std::min<std::int64_t>({std::int64_t{top} + scaling.bottom(), std::int64_t{bounds.y} + bounds.height,
                                std::int64_t{clip.y} + clip.height});
    if (x1 <= x0 || y1 <= y0)
        return {};
    return {static_cast<int>(x0), static_cast<int>(y0), static_cast<int>(x1 - x0), static_cast<int>(y1 - y0)};
}

} // namespace

ReducedPage::ReducedPage(const Picture& page, int width, int height)
    : scaling_(page, 0, 0, page.Width(), page.Height(), width, height), id_(page.id()), width_(width), height_(height),
      stride_(aligned(std::ptrdiff_t{width} * scaling_.bytesPerPixel())),
      pixels_(new (std::nothrow) std::uint8_t[static_cast<std::size_t>(stride_) * static_cast<std::size_t>(height)]),
      bandDone_(static_cast<std::size_t>((height + kBandHeight - 1) / kBandHeight)) {}

bool ReducedPage::shows(const Picture& page, int width, int height) const {
    return id_ == page.id() && width_ == width && height_ == height;
}

const std::uint8_t* ReducedPage::rows(int y0, int y1) {
    std::unique_ptr<ScaledRows> source;
    for (int band = y0 / kBandHeight; band * kBandHeight < y1; ++band) {
        if (bandDone_[static_cast<std::size_t>(band)])
            continue;
        if (!source)
            source = scaling_.rows(0, width_);
        const int end = std::min((band + 1) * kBandHeight, height_);
        for (int y = band * kBandHeight; y < end; ++y)
            source->row(y, pixels_.get() + y * stride_);
        bandDone_[static_cast<std::size_t>(band)] = true;
        rowsComputed_ += end - band * kBandHeight;
    }
    return pixels_.get() + y0 * stride_;
}

PixelBlock PageRenderer::render(const PictureDrawn& drawn, double scale, const DeviceRect& clip) {
    if (!drawn.picture || drawn.w <= 0 || drawn.h <= 0 || drawn.sw <= 0 || drawn.sh <= 0)
        return {};
    const DeviceRect place = scaled(drawn, scale);
    if (drawn.sw == drawn.picture.Width() && drawn.sh == drawn.picture.Height())
        return renderPage(drawn, place, clip);
    const Scaling scaling(drawn.picture, drawn.sx, drawn.sy, drawn.sw, drawn.sh, place.width, place.height);
    return renderDirectly(scaling, place.x, place.y, visible(scaling, place.x, place.y, place, clip));
}

PixelBlock PageRenderer::renderPage(const PictureDrawn& drawn, const DeviceRect& place, const DeviceRect& clip) {
    // The page is scaled as a whole and moved by whole device pixels, whatever its position.
    const Scaling scaling(drawn.picture, 0, 0, drawn.sw, drawn.sh, place.width, place.height);
    const int left = rounded(place.x - static_cast<double>(drawn.sx) * place.width / drawn.sw);
    const int top = rounded(place.y - static_cast<double>(drawn.sy) * place.height / drawn.sh);
    const DeviceRect shown = visible(scaling, left, top, place, clip);
    const bool smaller = place.width < drawn.sw || place.height < drawn.sh;
    if (!smaller || shown.width == 0)
        return renderDirectly(scaling, left, top, shown);
    if (!reduced_ || !reduced_->shows(drawn.picture, place.width, place.height))
        reduced_.emplace(drawn.picture, place.width, place.height);
    if (!reduced_->usable())
        return renderDirectly(scaling, left, top, shown);
    const std::uint8_t* rows = reduced_->rows(shown.y - top, shown.y - top + shown.height);
    return {shown, scaling.inColor(), rows + std::ptrdiff_t{shown.x - left} * scaling.bytesPerPixel(),
            reduced_->stride()};
}

PixelBlock PageRenderer::renderDirectly(const Scaling& scaling, int left, int top, const DeviceRect& shown) {
    if (shown.width == 0)
        return {};
    const std::ptrdiff_t stride = aligned(std::ptrdiff_t{shown.width} * scaling.bytesPerPixel());
    buffer_.resize(static_cast<std::size_t>(stride / 4 * shown.height));
    auto* data = reinterpret_cast<std::uint8_t*>(buffer_.data());
    scaling.band(shown.x - left, shown.x - left + shown.width, shown.y - top, shown.y - top + shown.height, data,
                 stride);
    return {shown, scaling.inColor(), data, stride};
}

} // namespace velmarin
