#include "view/Picture.h"

#include "text/NilObjectException.h"
#include "view/PixTools.h"
#include "view/Scaling.h"

#include <algorithm>
#include <atomic>
#include <vector>

namespace velmarin {
namespace {

std::uint64_t nextId() {
    static std::atomic<std::uint64_t> last{0};
    return ++last;
}

} // namespace

bool isPictureSize(std::int64_t width, std::int64_t height) {
    return width > 0 && height > 0 && width <= maxSide && height <= maxSide && width * height <= maxPixels;
}

Picture Picture::adopt(Pix* pix) {
    Picture made;
    made.take(pix);
    return made;
}

void Picture::take(Pix* pix) {
    pix_.reset();
    if (pix != nullptr)
        pix_.reset(pix, PixDeleter());
    id_ = pix != nullptr ? nextId() : 0;
}

Picture Picture::make(int width, int height, int depth) {
    if (!isPictureSize(width, height))
        return {};
    PixPtr pix = newPix(width, height, depth);
    if (pix && depth > 1)
        pixSetAll(pix.get());
    return adopt(pix.release());
}

int Picture::Width() const {
    return pix_ ? pixGetWidth(pix_.get()) : 0;
}

int Picture::Height() const {
    return pix_ ? pixGetHeight(pix_.get()) : 0;
}

int Picture::depth() const {
    return pix_ ? pixGetDepth(pix_.get()) : 0;
}

Pix* Picture::pix() const {
    if (!pix_)
        throw NilObjectException("A picture was used that is not there.");
    return pix_.get();
}

const std::uint32_t* Picture::row(int y) const {
    return pixGetData(pix()) + std::ptrdiff_t{y} * pixGetWpl(pix());
}

Color Picture::pixel(int x, int y) const {
    const std::uint32_t* words = row(y);
    if (depth() == 32)
        return {static_cast<std::uint8_t>(words[x] >> 24), static_cast<std::uint8_t>(words[x] >> 16),
                static_cast<std::uint8_t>(words[x] >> 8)};
    const auto grey =
        static_cast<std::uint8_t>(depth() == 8 ? GET_DATA_BYTE(words, x) : (GET_DATA_BIT(words, x) != 0 ? 0 : 255));
    return {grey, grey, grey};
}

bool Picture::detach() {
    if (pix_.use_count() == 1) {
        id_ = nextId();
        return true;
    }
    PixPtr copy(pixCopy(nullptr, pix()));
    if (!copy)
        return false;
    take(copy.release());
    return true;
}

bool Picture::deepenTo(int depth) {
    if (depth <= this->depth())
        return true;
    PixPtr deeper(depth == 32 ? pixConvertTo32(pix()) : pixConvertTo8(pix(), 0));
    if (!deeper)
        return false;
    take(deeper.release());
    return true;
}

bool Picture::DrawPicture(const Picture& source, int x, int y, int w, int h, int sx, int sy, int sw, int sh) {
    if (isNil() || source.isNil())
        throw NilObjectException("A picture was drawn that is not there.");
    const Scaling scaling(source, sx, sy, sw, sh, w, h,
                          AntiAlias ? Scaling::Smoothing::Smooth : Scaling::Smoothing::Nearest);
    const auto left = static_cast<int>(std::max<std::int64_t>(scaling.left(), -std::int64_t{x}));
    const auto top = static_cast<int>(std::max<std::int64_t>(scaling.top(), -std::int64_t{y}));
    const auto right = static_cast<int>(std::min<std::int64_t>(scaling.right(), std::int64_t{Width()} - x));
    const auto bottom = static_cast<int>(std::min<std::int64_t>(scaling.bottom(), std::int64_t{Height()} - y));
    if (left >= right || top >= bottom)
        return true;
    const bool shades = source.depth() == 1 && AntiAlias && !scaling.identical();
    if (!deepenTo(shades ? 8 : source.depth()) || !detach())
        return false;

    const std::unique_ptr<ScaledRows> rows = scaling.rows(left, right);
    std::vector<std::uint32_t> line(static_cast<std::size_t>(right - left));
    const auto* greys = reinterpret_cast<const std::uint8_t*>(line.data());
    for (int r = top; r < bottom; ++r) {
        rows->row(r, reinterpret_cast<std::uint8_t*>(line.data()));
        std::uint32_t* to = pixGetData(pix_.get()) + std::ptrdiff_t{y + r} * pixGetWpl(pix_.get());
        for (int c = left; c < right; ++c) {
            const std::uint32_t grey = scaling.colour() ? 0 : greys[c - left];
            if (depth() == 32)
                to[x + c] =
                    scaling.colour() ? line[static_cast<std::size_t>(c - left)] << 8 | 0xff : grey * 0x01010100u | 0xff;
            else if (depth() == 8)
                SET_DATA_BYTE(to, x + c, grey);
            else if (grey < 128)
                SET_DATA_BIT(to, x + c);
            else
                CLEAR_DATA_BIT(to, x + c);
        }
    }
    return true;
}

Picture Picture::withWhiteEdges() && {
    if (!detach())
        return {};
    Pix* pix = pix_.get();
    pixRasterop(pix, 0, 0, Width(), 1, depth() == 1 ? PIX_CLR : PIX_SET, nullptr, 0, 0);
    pixRasterop(pix, 0, 0, 1, Height(), depth() == 1 ? PIX_CLR : PIX_SET, nullptr, 0, 0);
    Picture edged = std::move(*this);
    edged.AntiAlias = true;
    id_ = 0;
    return edged;
}

} // namespace velmarin
