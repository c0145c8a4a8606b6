#include "view/PixTools.h"

#include <cstdint>

namespace velmarin {

void silenceLeptonica() {
    static const bool done = [] {
        setMsgSeverity(L_SEVERITY_NONE);
        leptSetStderrHandler([](const char*) {});
        return true;
    }();
    static_cast<void>(done);
}

PixPtr newPix(int width, int height, int depth) {
    silenceLeptonica();
    return PixPtr(depth == 1 ? pixCreate(width, height, depth) : pixCreateNoInit(width, height, depth));
}

PixPtr normalForm(PixPtr pix) {
    if (pix && pixGetColormap(pix.get()) != nullptr)
        pix.reset(pixRemoveColormap(pix.get(), REMOVE_CMAP_BASED_ON_SRC));
    if (!pix)
        return pix;
    const int depth = pixGetDepth(pix.get());
    if (depth == 32 && pixGetSpp(pix.get()) == 4) {
        pix.reset(pixAlphaBlendUniform(pix.get(), 0xffffff00));
        if (pix)
            pixSetSpp(pix.get(), 3);
    } else if (depth != 1 && depth != 8 && depth != 32) {
        pix.reset(pixConvertTo8(pix.get(), 0));
    }
    return pix;
}

namespace {

enum class Content { BlackAndWhite, Grey, Color };

Content contentOf(Pix* pix) {
    auto content = Content::BlackAndWhite;
    const int width = pixGetWidth(pix);
    for (int y = 0; y < pixGetHeight(pix); ++y) {
        const std::uint32_t* words = pixGetData(pix) + std::ptrdiff_t{y} * pixGetWpl(pix);
        for (int x = 0; x < width; ++x) {
            const std::uint32_t rgb = words[x] >> 8;
            if (rgb != (rgb & 0xff) * 0x010101u)
                return Content::Color;
            if (rgb != 0 && rgb != 0xffffff)
                content = Content::Grey;
        }
    }
    return content;
}

} // namespace

PixPtr inSmallestDepth(PixPtr pix) {
    if (!pix)
        return pix;
    const Content content = contentOf(pix.get());
    if (content == Content::Color)
        return pix;
    const int width = pixGetWidth(pix.get());
    PixPtr smaller = newPix(width, pixGetHeight(pix.get()), content == Content::Grey ? 8 : 1);
    if (!smaller)
        return pix;
    for (int y = 0; y < pixGetHeight(pix.get()); ++y) {
        const std::uint32_t* from = pixGetData(pix.get()) + std::ptrdiff_t{y} * pixGetWpl(pix.get());
        std::uint32_t* to = pixGetData(smaller.get()) + std::ptrdiff_t{y} * pixGetWpl(smaller.get());
        for (int x = 0; x < width; ++x) {
            const std::uint32_t grey = from[x] >> 24;
            if (content == Content::Grey)
                SET_DATA_BYTE(to, x, grey);
            else if (grey == 0)
                SET_DATA_BIT(to, x);
        }
    }
    return smaller;
}

void blendOverWhite(Pix* pix) {
    const auto words = static_cast<std::size_t>(pixGetWpl(pix)) * static_cast<std::size_t>(pixGetHeight(pix));
    l_uint32* data = pixGetData(pix);
    for (std::size_t i = 0; i < words; ++i) {
        const std::uint32_t word = data[i];
        const std::uint32_t alpha = word & 0xff;
        auto over = [&](std::uint32_t light) { return (light * alpha + 255 * (255 - alpha) + 127) / 255; };
        data[i] = over(word >> 24) << 24 | over(word >> 16 & 0xff) << 16 | over(word >> 8 & 0xff) << 8 | 0xff;
    }
}

} // namespace velmarin
