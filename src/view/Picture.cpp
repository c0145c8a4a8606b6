#include "view/Picture.h"

#include "text/NilObjectException.h"
#include "view/PixTools.h"

#include <atomic>

namespace velmarin {
namespace {

std::uint64_t nextId() {
    static std::atomic<std::uint64_t> last{0};
    return ++last;
}

} // namespace

bool isPictureSize(std::int64_t width, std::int64_t height) {
    return width > 0 && height > 0 && width <= kMaxSide && height <= kMaxSide && width * height <= kMaxPixels;
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
        throw NilObjectException("A nil picture was used.");
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

Pix* Picture::pixelsToDrawOn(int depth) {
    if (depth > this->depth()) {
        PixPtr deeper(depth == 32 ? pixConvertTo32(pix()) : pixConvertTo8(pix(), 0));
        if (!deeper)
            return nullptr;
        take(deeper.release());
    }
    return detach() ? pix_.get() : nullptr;
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
