#include "view/DecodePict.h"

#include "store/PictureFormats.h"
#include "view/DecodeByMagick.h"
#include "view/PictMap.h"
#include "view/Picture.h"
#include "view/PictureDrawing.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>

namespace velmarin {
namespace {

constexpr int kClippingRegion = 0x01;
constexpr int kLongComment = 0xa1;

/// Opcodes that draw nothing and whose operands have one length, with that length in bytes.
constexpr std::pair<int, std::size_t> kFixedOperands[] = {
    {0x00, 0},    // no operation
    {0x1c, 0},    // highlighting
    {0x1e, 0},    // default highlighting
    {0x04, 1},    // text face
    {0x03, 2},    // text font
    {0x05, 2},    // text mode
    {0x0d, 2},    // text size
    {0x08, 2},    // pen mode
    {0x15, 2},    // fraction of the pen position
    {0x16, 2},    // extra width of characters
    {0xa0, 2},    // short comment
    {0x06, 4},    // extra width of spaces
    {0x07, 4},    // pen size
    {0x0b, 4},    // oval size
    {0x0c, 4},    // origin
    {0x0e, 4},    // old foreground color
    {0x0f, 4},    // old background color
    {0x1a, 6},    // foreground color
    {0x1b, 6},    // background color
    {0x1d, 6},    // highlight color
    {0x1f, 6},    // color for arithmetic modes
    {0x02, 8},    // background pattern
    {0x09, 8},    // pen pattern
    {0x0a, 8},    // fill pattern
    {0x10, 8},    // text ratio
    {0x0c00, 24}, // header
};

/// Skips the operands of an opcode that draws nothing. False for all others.
bool skipOperands(PictReader& in, int opcode) {
    for (const auto& [known, bytes] : kFixedOperands)
        if (opcode == known) {
            in.skip(bytes);
            return true;
        }
    if (opcode == kClippingRegion) {
        in.skipRegion();
        return true;
    }
    if (opcode == kLongComment) {
        in.skip(2);
        in.skip(static_cast<std::size_t>(in.word()));
        return true;
    }
    return false;
}

/// Draws the pixel maps of a PICT, a single one or one per band, as scanning programs write them. GraphicsMagick draws
/// bit maps all black and takes the size from the clipping region.
class MappedPict {
  public:
    MappedPict(std::string_view bytes, const PictRectangle& frame)
        : in_(bytes), frame_(frame), canvas_(Picture::make(frame.width(), frame.height(), 1)) {}

    /// False if the picture has no pixel map, so that another decoder must draw it.
    bool draw(DecodedPix& result) {
        if (!canvas_) {
            result = DecodedPix::noMemory();
            return true;
        }
        run(result);
        if (in_.ended())
            result = DecodedPix::failed("the file is damaged or ends within the picture");
        return hasMap_ || !result.reason.empty();
    }

  private:
    void run(DecodedPix& result) {
        in_.skip(2 + 8);                       // size and frame
        const bool version2 = in_.byte() == 0; // opcodes of two bytes, aligned
        in_.skip(version2 ? 3 : 1);
        while (!in_.ended()) {
            if (version2)
                in_.align();
            const int opcode = version2 ? in_.word() : in_.byte();
            if (isPictMap(opcode)) {
                const PictMap map = readPictMap(in_, opcode);
                hasMap_ = true;
                if (!map.picture || !withinBounds(map) || !drawMap(map)) {
                    result = DecodedPix::failed("a part of the picture cannot be read");
                    return;
                }
            } else if (!skipOperands(in_, opcode)) {
                if (hasMap_)
                    result.pix.reset(pixClone(canvas_.pix()));
                if (hasMap_ && opcode != 0xff)
                    result.reason = "it also holds drawings that are not shown";
                return;
            }
        }
    }

    /// Limits the work: a small file can hold many empty maps, each as large as a picture may be.
    bool withinBounds(const PictMap& map) {
        const std::int64_t frame = std::int64_t{frame_.width()} * frame_.height();
        const std::int64_t target = std::int64_t{std::abs(map.target.width())} * std::abs(map.target.height());
        pixelsDone_ += std::int64_t{map.bounds.width()} * map.bounds.height() + std::min(frame, target);
        return pixelsDone_ <= 2 * kMaxPixels;
    }

    bool drawMap(const PictMap& map) {
        return DrawPicture(canvas_, map.picture, map.target.left - frame_.left, map.target.top - frame_.top,
                           map.target.width(), map.target.height(), map.source.left - map.bounds.left,
                           map.source.top - map.bounds.top, map.source.width(), map.source.height());
    }

    PictReader in_;
    PictRectangle frame_;
    Picture canvas_;
    bool hasMap_ = false;
    std::int64_t pixelsDone_ = 0; ///< read and drawn
};

} // namespace

DecodedPix decodePict(std::string_view bytes) {
    const std::string_view body = bytes.substr(pictStart(bytes));
    PictReader header(body);
    header.skip(2);
    const PictRectangle frame(header);
    if (!isPictureSize(frame.width(), frame.height()))
        return DecodedPix::tooLarge(frame.width(), frame.height());
    DecodedPix result;
    if (MappedPict(body, frame).draw(result))
        return result;
    return decodeByMagick(std::string(512, '\0').append(body), "PICT");
}

} // namespace velmarin
