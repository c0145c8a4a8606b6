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

inline constexpr Color kBlack = RGB(0, 0, 0);
inline constexpr Color kWhite = RGB(255, 255, 255);
inline constexpr Color kRed = RGB(255, 0, 0);
inline constexpr Color kGreen = RGB(0, 255, 0);

/// The limits of every picture, read or created: a gigapixel in all (Leptonica holds half of that in color), and a side
/// for which exact area sums fit 32 bits.
inline constexpr std::int64_t kMaxPixels = 1'000'000'000;
inline constexpr int kMaxSide = 4'000'000;
bool isPictureSize(std::int64_t width, std::int64_t height);

/// An image in the depth in which it was scanned: 1 bit (ink or paper), 8 bits (grey) or 32 bits (color). `pixel` and
/// drawing treat it as an opaque 32-bit picture. Copies share their pixels until one of them is drawn on. A
/// default-constructed picture is nil; using its pixels raises NilObjectException.
class Picture {
  public:
    Picture() = default;

    /// A white picture. Nil if isPictureSize refuses the size or memory fails.
    static Picture make(int width, int height, int depth = 32);
    /// Takes ownership of `pix`, which has 1, 8 or 32 bits and no color map (in 1 bit, 0 is paper; 32 bits are
    /// opaque). Null gives nil.
    static Picture adopt(Pix* pix);

    bool isNil() const { return pix_ == nullptr; }
    explicit operator bool() const { return pix_ != nullptr; }

    /// 0 if nil.
    int Width() const;
    int Height() const;
    int depth() const;
    Color pixel(int x, int y) const;

    /// Whether drawing into this picture at another scale is smoothed.
    bool AntiAlias = true;

    /// Returns this picture with its first row and column white. The pixels are copied only if another picture shares
    /// them. Nil if memory fails.
    Picture withWhiteEdges() &&;

    /// The pixels in Leptonica's form, read only.
    Pix* pix() const;
    /// A line of pixels as 32-bit words, the leftmost pixel in the highest bits.
    const std::uint32_t* row(int y) const;
    /// The pixels, to be drawn on, in at least `depth` bits (8 or 32; 1 keeps the depth). No other picture shares them.
    /// Null if memory fails.
    Pix* pixelsToDrawOn(int depth);
    /// Unique for each set of pixels in the process; for caches. 0 if nil.
    std::uint64_t id() const { return id_; }

  private:
    bool detach();
    void take(Pix* pix);

    std::shared_ptr<Pix> pix_;
    std::uint64_t id_ = 0;
};

} // namespace velmarin
