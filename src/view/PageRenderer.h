#pragma once

#include "view/Graphics.h"
#include "view/Scaling.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace velmarin {

struct DeviceRect {
    int x = 0, y = 0, width = 0, height = 0;
};

/// Pixels ready to be copied to a rectangle of the screen.
struct PixelBlock {
    DeviceRect place;
    bool inColor = false;               ///< true: words 0xffRRGGBB; false: bytes of grey
    const std::uint8_t* data = nullptr; ///< rows of `stride` bytes, a multiple of 4
    std::ptrdiff_t stride = 0;
    bool empty() const { return place.width <= 0 || place.height <= 0; }
};

/// A reduced page, computed in bands of rows on first use.
class ReducedPage {
  public:
    /// The result is `width` by `height` device pixels.

    ReducedPage(const Picture& page, int width, int height);
    /// False if memory failed.
    bool usable() const { return pixels_ != nullptr; }
    bool shows(const Picture& page, int width, int height) const;
    /// Computes the rows y0 to y1 - 1 if needed, and returns the first of them.
    const std::uint8_t* rows(int y0, int y1);
    std::ptrdiff_t stride() const { return stride_; }
    /// The number of rows computed so far.
    int rowsComputed() const { return rowsComputed_; }

  private:
    static constexpr int kBandHeight = 64;

    Scaling scaling_;
    std::uint64_t id_;
    int width_, height_;
    std::ptrdiff_t stride_;
    std::unique_ptr<std::uint8_t[]> pixels_;
    std::vector<bool> bandDone_;
    int rowsComputed_ = 0;
};

/// Renders PictureDrawn commands to device pixels. A page that is shown reduced is cached at its current scale, so
/// scrolling only copies pixels. A page at original size or enlarged, and a part of a page (the lens), is rendered from
/// the page each time.
class PageRenderer {
  public:
    /// Renders the part of `drawn` inside `clip` (device pixels), at `scale` device pixels per control pixel. The
    /// pixels are valid until the next call.
    PixelBlock render(const PictureDrawn& drawn, double scale, const DeviceRect& clip);
    /// Drops the cached page.
    void dropCache() { reduced_.reset(); }
    const ReducedPage* reduced() const { return reduced_ ? &*reduced_ : nullptr; }

  private:
    PixelBlock renderPage(const PictureDrawn& drawn, const DeviceRect& whole, const DeviceRect& clip);
    PixelBlock renderDirectly(const Scaling& scaling, int left, int top, const DeviceRect& clip);

    std::optional<ReducedPage> reduced_;
    std::vector<std::uint32_t> buffer_;
};

} // namespace velmarin
