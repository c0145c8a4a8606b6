#pragma once

#include <cstdint>
#include <memory>

struct Pix;

namespace velmarin {

/// An RGB value.
struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    friend bool operator==(const Color&, const Color&) = default;
};

constexpr Color RGB(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    return {red, green, blue};
}

/// The limits of every picture, asked for or read: a gigapixel in all (half of it in colour, which is what Leptonica
/// holds), and a side that keeps exact area sums within 32 bits.
inline constexpr std::int64_t maxPixels = 1'000'000'000;
inline constexpr int maxSide = 4'000'000;
bool isPictureSize(std::int64_t width, std::int64_t height);

/// A pixel image, kept in the depth it was scanned in: 1 bit (ink or paper), 8 bits (grey) or 32 bits (colour). Reading
/// pixels and drawing see a 32-bit opaque picture. Copies share their pixels until one of them is drawn on. A
/// default-constructed picture is nil; using its pixels raises NilObjectException.
class Picture {
  public:
    Picture() = default;

    /// A white picture. Nil if isPictureSize refuses the size or memory fails.
    static Picture make(int width, int height, int depth = 32);
    /// Takes ownership of `pix`, which has 1, 8 or 32 bits and no colour map (in 1 bit, 0 is paper; 32 bits are
    /// opaque). Null gives nil.
    static Picture adopt(Pix* pix);

    bool isNil() const { return pix_ == nullptr; }
    explicit operator bool() const { return pix_ != nullptr; }

    /// 0 if nil.
    int Width() const;
    int Height() const;
    int depth() const;
    Color pixel(int x, int y) const;

    /// Whether what is drawn into this picture at another scale is smoothed.
    bool AntiAlias = true;

    /// Draws the rectangle sx, sy, sw, sh of `source`, scaled to x, y, w, h. What overruns either picture is clipped
    /// without changing the scale. This picture takes the depth that the drawing needs. False, and nothing drawn, if
    /// memory fails.
    bool DrawPicture(const Picture& source, int x, int y, int w, int h, int sx, int sy, int sw, int sh);

    /// This picture with its first row and its first column white. The pixels are copied only if another picture shares
    /// them. Nil if memory fails.
    Picture withWhiteEdges() &&;

    /// The pixels as Leptonica keeps them: read only.
    Pix* pix() const;
    /// A line of pixels as 32-bit words, the leftmost pixel in the highest bits.
    const std::uint32_t* row(int y) const;
    /// Identifies this set of pixels among all that the process has made, for caches. 0 if nil.
    std::uint64_t id() const { return id_; }

  private:
    bool detach();
    bool deepenTo(int depth);
    void take(Pix* pix);

    std::shared_ptr<Pix> pix_;
    std::uint64_t id_ = 0;
};

} // namespace velmarin
