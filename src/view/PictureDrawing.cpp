#include "view/PictureDrawing.h"

#include "text/NilObjectException.h"
#include "view/PixTools.h"
#include "view/Scaling.h"

#include <algorithm>
#include <vector>

namespace velmarin {
namespace {

/// Writes one row, as ScaledRows gives it, to the pixels from `first` on of a line of `depth` bits.
void writeRow(const std::vector<std::uint32_t>& row, bool inColor, l_uint32* line, int first, int depth) {
    const auto* greys = reinterpret_cast<const std::uint8_t*>(row.data());
    for (std::size_t i = 0; i < row.size(); ++i) {
        const auto x = static_cast<std::size_t>(first) + i;
        if (inColor)
            line[x] = row[i] << 8 | 0xff;
        else if (depth == 32)
            line[x] = greys[i] * 0x01010100u | 0xff;
        else if (depth == 8)
            SET_DATA_BYTE(line, x, greys[i]);
        else if (greys[i] < 128)
            SET_DATA_BIT(line, x);
        else
            CLEAR_DATA_BIT(line, x);
    }
}

} // namespace

bool DrawPicture(Picture& target, const Picture& source, int x, int y, int w, int h, int sx, int sy, int sw, int sh) {
    if (target.isNil() || source.isNil())
        throw NilObjectException("A nil picture was drawn.");
    const Scaling scaling(source, sx, sy, sw, sh, w, h,
                          target.AntiAlias ? Scaling::Smoothing::Smooth : Scaling::Smoothing::Nearest);
    const auto left = static_cast<int>(std::max<std::int64_t>(scaling.left(), -std::int64_t{x}));
    const auto top = static_cast<int>(std::max<std::int64_t>(scaling.top(), -std::int64_t{y}));
    const auto right = static_cast<int>(std::min<std::int64_t>(scaling.right(), std::int64_t{target.Width()} - x));
    const auto bottom = static_cast<int>(std::min<std::int64_t>(scaling.bottom(), std::int64_t{target.Height()} - y));
    if (left >= right || top >= bottom)
        return true;
    const bool shades = source.depth() == 1 && target.AntiAlias && !scaling.identical();
    Pix* pix = target.pixelsToDrawOn(shades ? 8 : source.depth());
    if (pix == nullptr)
        return false;

    const std::unique_ptr<ScaledRows> rows = scaling.rows(left, right);
    std::vector<std::uint32_t> row(static_cast<std::size_t>(right - left));
    for (int r = top; r < bottom; ++r) {
        rows->row(r, reinterpret_cast<std::uint8_t*>(row.data()));
        writeRow(row, scaling.inColor(), pixGetData(pix) + std::ptrdiff_t{y + r} * pixGetWpl(pix), x + left,
                 target.depth());
    }
    return true;
}

} // namespace velmarin
