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

/// Pixels for a rectangle of the screen, ready to be copied there.
struct PixelBlock {
    DeviceRect place;
    bool colour = false;                ///< words 0xffRRGGBB; otherwise bytes of grey
    const std::uint8_t* data = nullptr; ///< rows of `stride` bytes, a multiple of 4
    std::ptrdiff_t stride = 0;
    bool empty() const { return place.width <= 0 || place.height <= 0; }
};

/// A reduced page, made in bands of rows when they are first asked for.
class ReducedPage {
  public:
    /// Rows are `width` device pixels wide. `usable` is false if memory fails.
    ReducedPage(const Picture& page, int width, int height);
    bool usable() const { return pixels_ != nullptr; }
    bool shows(const Picture& page, int width, int height) const;
    /// Makes the rows y0 to y1 - 1 if needed, and returns the first of them.
    const std::uint8_t* rows(int y0, int y1);
    std::ptrdiff_t stride() const { return stride_; }
    /// How many rows have been made.
    int rowsMade() const { return rowsMade_; }

  private:
    static constexpr int bandHeight = 64;

    Scaling scaling_;
    std::uint64_t id_;
    int width_, height_;
    std::ptrdiff_t stride_;
    std::unique_ptr<std::uint8_t[]> pixels_;
    std::vector<bool> made_;
    int rowsMade_ = 0;
};

/// Turns drawn pictures into device pixels. A page that is shown reduced is kept at its present scale, so that
/// scrolling copies pixels. What is shown at original size, enlarged, or in part (the lens) is made from the page each
/// time.
class PageRenderer {
  public:
    /// The part of `drawn` that lies within `clip`, at `scale` device pixels to a control pixel. `clip` is in device
    /// pixels. The pixels last until the next call.
    PixelBlock render(const PictureDrawn& drawn, double scale, const DeviceRect& clip);
    /// Forgets the page.
    void drop() { reduced_.reset(); }
    const ReducedPage* reduced() const { return reduced_ ? &*reduced_ : nullptr; }

  private:
    PixelBlock renderPage(const PictureDrawn& drawn, const DeviceRect& whole, const DeviceRect& clip);
    PixelBlock renderDirectly(const Scaling& scaling, int left, int top, const DeviceRect& clip);

    std::optional<ReducedPage> reduced_;
    std::vector<std::uint32_t> buffer_;
};

} // namespace velmarin
