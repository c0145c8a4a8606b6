#include "view/DecodePict.h"

#include "store/PictureFormats.h"
#include "view/DecodeByMagick.h"
#include "view/PictMap.h"
#include "view/Picture.h"
#include "view/PictureDrawing.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace velmarin {
namespace {

/// Skips the operands of an opcode that draws nothing. False for all others.
bool skipOperands(PictReader& in, int opcode) {
    switch (opcode) {
    case 0x00: // no operation
    case 0x1c: // highlighting
    case 0x1e:
        return true;
    case 0x01: // clipping region
        in.skipRegion();
        return true;
    case 0x04: // text face
        in.skip(1);
        return true;
    case 0x03: // text font, mode, size
    case 0x05:
    case 0x0d:
    case 0x08: // pen mode
    case 0x15: // fraction of the pen position
    case 0x16: // extra width of characters
    case 0xa0: // short comment
        in.skip(2);
        return true;
    case 0x06: // extra width of spaces
    case 0x07: // pen size
    case 0x0b: // oval size
    case 0x0c: // origin
    case 0x0e: // old colors
    case 0x0f:
        in.skip(4);
        return true;
    case 0x1a: // colors
    case 0x1b:
    case 0x1d:
    case 0x1f:
        in.skip(6);
        return true;
    case 0x02: // patterns
    case 0x09:
    case 0x0a:
    case 0x10: // text ratio
        in.skip(8);
        return true;
    case 0xa1: // long comment
        in.skip(2);
        in.skip(static_cast<std::size_t>(in.word()));
        return true;
    case 0x0c00: // header
        in.skip(24);
        return true;
    default:
        return false;
    }
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
