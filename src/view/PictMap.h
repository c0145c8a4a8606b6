#pragma once

#include "view/Picture.h"

#include <cstdint>
#include <string_view>

namespace velmarin {

/// Reads the big-endian values of a PICT; throws EndOfFile past the last byte.
class PictReader {
  public:
    struct EndOfFile {};

    explicit PictReader(std::string_view bytes) : bytes_(bytes) {}

    std::string_view take(std::size_t count) {
        if (count > bytes_.size() - at_)
            throw EndOfFile();
        at_ += count;
        return bytes_.substr(at_ - count, count);
    }
    int byte() { return static_cast<unsigned char>(take(1)[0]); }
    int word() {
        const int high = byte();
        return high << 8 | byte();
    }
    int signedWord() { return static_cast<std::int16_t>(word()); }
    void skip(std::size_t count) { take(count); }
    /// Skips a region, which begins with its size.
    void skipRegion() {
        const int size = word();
        skip(static_cast<std::size_t>(size > 2 ? size - 2 : 0));
    }
    void evenUp() {
        if (at_ % 2 != 0)
            skip(1);
    }

  private:
    std::string_view bytes_;
    std::size_t at_ = 0;
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
    Picture picture; ///< nil if it is damaged, packed in an unknown way, or memory fails
    PictRectangle bounds, source, target;
};

/// Whether an opcode draws a pixel map: 0x90, 0x91, 0x98 to 0x9b.
bool isPictMap(int opcode);

/// Reads the operands of such an opcode: bit maps, maps with a colour table, maps of 16 and 32 bits, plain or packed
/// (source: "Inside Macintosh: Imaging With QuickDraw"). May throw PictReader::EndOfFile.
PictMap readPictMap(PictReader& in, int opcode);

} // namespace velmarin
