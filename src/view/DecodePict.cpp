#include "view/Formats.h"

#include "store/PictureFormats.h"
#include "view/PictMap.h"
#include "view/Picture.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace velmarin {
namespace {

/// Skips the operands of an opcode that draws nothing. False for all others.
bool skipOperands(PictReader& in, int opcode) {
    switch (opcode) {
    case 0x00: // nothing
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
    case 0x15: // fraction of the pen's place
    case 0x16: // extra width of characters
    case 0xa0: // short comment
        in.skip(2);
        return true;
    case 0x06: // extra width of spaces
    case 0x07: // pen size
    case 0x0b: // oval size
    case 0x0c: // origin
    case 0x0e: // old colours
    case 0x0f:
        in.skip(4);
        return true;
    case 0x1a: // colours
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

/// Draws the pixel maps of a PICT, one or in bands, as scanning programs write them. GraphicsMagick shows bit maps all
/// black and takes the size from the clipping region.
class MappedPict {
  public:
    MappedPict(std::string_view bytes, const PictRectangle& frame)
        : in_(bytes), frame_(frame), canvas_(Picture::make(frame.width(), frame.height(), 1)) {}

    /// False if the picture holds no pixel map, and another decoder must draw it.
    bool draw(DecodedPix& result) {
        if (!canvas_) {
            result = DecodedPix::noMemory();
            return true;
        }
        try {
            run(result);
        } catch (const PictReader::EndOfFile&) {
            result = DecodedPix::failed("the file is damaged or ends within the picture");
        }
        return begun_ || !result.reason.empty();
    }

  private:
    void run(DecodedPix& result) {
        in_.skip(2 + 8); // size and frame
        const bool wide = in_.byte() == 0;
        in_.skip(wide ? 3 : 1);
        for (;;) {
            if (wide)
                in_.evenUp();
            const int opcode = wide ? in_.word() : in_.byte();
            if (isPictMap(opcode)) {
                const PictMap map = readPictMap(in_, opcode);
                begun_ = true;
                if (!map.picture || !withinBounds(map) || !drawMap(map)) {
                    result = DecodedPix::failed("a part of the picture cannot be read");
                    return;
                }
            } else if (!skipOperands(in_, opcode)) {
                if (begun_)
                    result.pix.reset(pixClone(canvas_.pix()));
                if (begun_ && opcode != 0xff)
                    result.reason = "it also holds drawings that are not shown";
                return;
            }
        }
    }

    /// A small file can hold many empty maps, each as large as a picture may be.
    bool withinBounds(const PictMap& map) {
        const std::int64_t frame = std::int64_t{frame_.width()} * frame_.height();
        const std::int64_t target = std::int64_t{std::abs(map.target.width())} * std::abs(map.target.height());
        work_ += std::int64_t{map.bounds.width()} * map.bounds.height() + std::min(frame, target);
        return work_ <= 2 * maxPixels;
    }

    bool drawMap(const PictMap& map) {
        return canvas_.DrawPicture(map.picture, map.target.left - frame_.left, map.target.top - frame_.top,
                                   map.target.width(), map.target.height(), map.source.left - map.bounds.left,
                                   map.source.top - map.bounds.top, map.source.width(), map.source.height());
    }

    PictReader in_;
    PictRectangle frame_;
    Picture canvas_;
    bool begun_ = false;
    std::int64_t work_ = 0; ///< pixels read and drawn
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
