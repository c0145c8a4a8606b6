#pragma once

#include "view/Picture.h"

#include <cstdint>
#include <string_view>

namespace velmarin {

/// Reads the big-endian values of a PICT. Past the last byte everything reads as 0 or empty, and `ended` is true.
class PictReader {
  public:
    explicit PictReader(std::string_view bytes) : bytes_(bytes) {}

    bool ended() const { return ended_; }
    /// The next `count` bytes; empty if there are fewer.
    std::string_view take(std::size_t count) {
        if (count > bytes_.size() - at_) {
            at_ = bytes_.size();
            ended_ = true;
            return {};
        }
        at_ += count;
        return bytes_.substr(at_ - count, count);
    }
    int byte() {
        const std::string_view one = take(1);
        return one.empty() ? 0 : static_cast<unsigned char>(one.front());
    }
    int word() {
        const int high = byte();
        return high << 8 | byte();
    }
    int signedWord() { return static_cast<std::int16_t>(word()); }
    void skip(std::size_t count) { take(count); }
    /// Skips a region; its first word is its size.
    void skipRegion() {
        const int size = word();
        skip(static_cast<std::size_t>(size > 2 ? size - 2 : 0));
    }
    /// Skips a byte if the position is odd.
    void align() {
        if (at_ % 2 != 0)
            skip(1);
    }

  private:
    std::string_view bytes_;
    std::size_t at_ = 0;
    bool ended_ = false;
};

struct PictRectangle {
    int top = 0, left = 0, bottom = 0, right = 0;

    PictRectangle() = default;
    explicit PictRectangle(PictReader& in)
        : top(in.signedWord()), left(in.signedWord()), bottom(in.signedWord()), right(in.signedWord()) {}
    int width() const { return right - left; }
    int height() const { return bottom - top; }
};

/// A pixel map of a PICT, and the rectangle that it is drawn in.
struct PictMap {
    Picture picture; ///< nil if it is damaged or packed in an unknown way, or memory fails
    PictRectangle bounds, source, target;
};

/// Whether an opcode draws a pixel map: 0x90, 0x91, 0x98 to 0x9b.
bool isPictMap(int opcode);

/// Reads the operands of such an opcode: bit maps, maps with a color table, maps of 16 and 32 bits, plain or packed.
/// Source: "Inside Macintosh: Imaging With QuickDraw", appendix A.
PictMap readPictMap(PictReader& in, int opcode);

} // namespace velmarin
