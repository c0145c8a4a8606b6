#pragma once

#include "view/Axis.h"
#include "view/Picture.h"
#include "view/ScaledRows.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace velmarin {

/// Scales a rectangle of a picture.
///
/// A reduction averages by exact area: each result pixel is the mean of the source under it, with partly covered source
/// pixels weighted by the covered part, rounded once (halves up). No stroke is lost, however thin. An enlargement is
/// bilinear between pixel centers; at scale 1 pixels are copied. If one direction is reduced and the other enlarged,
/// both use the mean by area.
class Scaling {
  public:
    enum class Smoothing { Smooth, Nearest };

    /// The rectangle sx, sy, sw, sh of `source` becomes width x height. It may overrun the source; the overrun is
    /// outside the visible part.
    Scaling(Picture source, int sx, int sy, int sw, int sh, int width, int height,
            Smoothing smoothing = Smoothing::Smooth);

    /// The part of the result that shows the source. Empty for sizes that cannot be scaled.
    int left() const { return left_; }
    int top() const { return top_; }
    int right() const { return right_; }
    int bottom() const { return bottom_; }

    /// False: one byte of grey per pixel. True: 32-bit words.
    bool inColor() const;
    int bytesPerPixel() const { return inColor() ? 4 : 1; }
    bool identical() const { return x_.identical() && y_.identical(); }

    /// Computes rows of the columns x0 to x1 - 1. Columns and rows must be in the visible part.
    std::unique_ptr<ScaledRows> rows(int x0, int x1) const;
    /// Writes columns x0 to x1 - 1 of the rows y0 to y1 - 1, `stride` bytes apart.
    void band(int x0, int x1, int y0, int y1, std::uint8_t* to, std::ptrdiff_t stride) const;

  private:
    Picture source_;
    Axis x_, y_;
    Smoothing smoothing_;
    int left_ = 0, top_ = 0, right_ = 0, bottom_ = 0;
};

} // namespace velmarin
