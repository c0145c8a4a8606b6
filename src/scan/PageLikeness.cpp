#include "scan/PageLikeness.h"

#include "scan/PageEncoding.h"
#include "view/PixTools.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmarin {

namespace {

constexpr int kBlur = 1;       ///< pixels to each side
constexpr int kNeighbours = 3; ///< side of the square of pixels that a pixel is compared with
constexpr int kTolerance = 64; ///< greys
/// Pixels at each edge that are not compared: makers of PDF round the size of a page to whole points.
constexpr int kEdge = 3;
constexpr double kMaxStretch = 1.03;
/// One pixel in so many may differ: fewer than a small digit has.
constexpr int kPixelsPerDifference = 50'000;

PixPtr greyOf(const Picture& picture) {
    return PixPtr(picture.depth() == 32 ? pixConvertRGBToLuminance(picture.pix()) : pixConvertTo8(picture.pix(), 0));
}

/// The page in grey, no larger than kLikenessSide; null if memory fails.
PixPtr smallPage(const Picture& rendered) {
    PixPtr grey = greyOf(rendered);
    const float scale =
        static_cast<float>(kLikenessSide) / static_cast<float>(std::max(rendered.Width(), rendered.Height()));
    return grey && scale < 1 ? PixPtr(pixScaleAreaMap(grey.get(), scale, scale)) : std::move(grey);
}

PixPtr blurred(const PixPtr& pix) {
    return pix ? PixPtr(pixBlockconv(pix.get(), kBlur, kBlur)) : nullptr;
}

/// How many pixels of `one` are darker or lighter than all their neighbours in `other` by more than the tolerance.
std::int64_t outliers(Pix* one, Pix* other) {
    const PixPtr low(pixErodeGray(other, kNeighbours, kNeighbours));
    const PixPtr high(pixDilateGray(other, kNeighbours, kNeighbours));
    std::int64_t count = 0;
    for (int y = kEdge; low && high && y < pixGetHeight(one) - kEdge; ++y) {
        const auto row = [&](Pix* pix) { return pixGetData(pix) + std::ptrdiff_t{y} * pixGetWpl(pix); };
        const l_uint32 *pixels = row(one), *least = row(low.get()), *most = row(high.get());
        for (int x = kEdge; x < pixGetWidth(one) - kEdge; ++x) {
            const auto at = [x](const l_uint32* line) { return static_cast<int>(GET_DATA_BYTE(line, x)); };
            const int pixel = at(pixels);
            count += pixel + kTolerance < at(least) || pixel - kTolerance > at(most) ? 1 : 0;
        }
    }
    return low && high ? count : std::int64_t{pixGetWidth(one)} * pixGetHeight(one);
}

bool looksLike(Pix* one, Pix* other) {
    const std::int64_t allowed = std::int64_t{pixGetWidth(one)} * pixGetHeight(one) / kPixelsPerDifference;
    return outliers(one, other) <= allowed && outliers(other, one) <= allowed;
}

/// The picture in grey and in the size of the page; null if it would have to be stretched, or memory fails.
PixPtr inSizeOf(const Picture& picture, Pix* page) {
    const float across = static_cast<float>(pixGetWidth(page)) / static_cast<float>(picture.Width());
    const float down = static_cast<float>(pixGetHeight(page)) / static_cast<float>(picture.Height());
    if (std::max(across / down, down / across) > kMaxStretch)
        return nullptr;
    const PixPtr grey = greyOf(picture);
    PixPtr scaled(grey ? pixScaleAreaMap(grey.get(), across, down) : nullptr);
    if (!scaled || (pixGetWidth(scaled.get()) == pixGetWidth(page) && pixGetHeight(scaled.get()) == pixGetHeight(page)))
        return scaled;
    return PixPtr(pixResizeToMatch(scaled.get(), page, 0, 0));
}

} // namespace

std::optional<PageLikeness> likenessOf(const Picture& embedded, const Picture& rendered) {
    silenceLeptonica();
    const PixPtr page = blurred(smallPage(rendered));
    if (!page)
        return std::nullopt;
    for (const int turn : {0, 90, 180, 270}) {
        // Turning the small picture would do, but its stretch is not known before.
        const Picture turned = turnedPicture(embedded, turn);
        const PixPtr picture = turned ? blurred(inSizeOf(turned, page.get())) : nullptr;
        if (!picture)
            continue;
        if (looksLike(picture.get(), page.get()))
            return PageLikeness{turn, false};
        const PixPtr inverse(pixInvert(nullptr, picture.get()));
        if (inverse && looksLike(inverse.get(), page.get()))
            return PageLikeness{turn, true};
    }
    return std::nullopt;
}

} // namespace velmarin
