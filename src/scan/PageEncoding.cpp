#include "scan/PageEncoding.h"

#include "view/Encoders.h"
#include "view/PixTools.h"

#include <cstdlib>
#include <string_view>

namespace velmarin {

namespace {

constexpr int kJpegQuality = 92;

/// What kinds of pixels a grey picture is made of.
struct Tones {
    std::int64_t pixels = 0;
    std::int64_t white = 0; ///< pure
    std::int64_t flat = 0;  ///< neither white nor black, and like the pixels around: not the edge of a stroke
    std::int64_t same = 0;  ///< as dark as the pixel to the left
};

Tones tonesOf(Pix* grey) {
    constexpr int kNearBlack = 48, kNearWhite = 224, kAlike = 24;
    Tones tones;
    const int width = pixGetWidth(grey), height = pixGetHeight(grey);
    for (int y = 1; y < height; ++y) {
        const l_uint32* row = pixGetData(grey) + std::ptrdiff_t{y} * pixGetWpl(grey);
        const l_uint32* above = row - pixGetWpl(grey);
        for (int x = 1; x < width; ++x) {
            const auto tone = static_cast<int>(GET_DATA_BYTE(row, x));
            const auto left = static_cast<int>(GET_DATA_BYTE(row, x - 1));
            const auto top = static_cast<int>(GET_DATA_BYTE(above, x));
            tones.white += tone == 255 ? 1 : 0;
            tones.same += tone == left ? 1 : 0;
            tones.flat += tone > kNearBlack && tone < kNearWhite && std::abs(tone - left) < kAlike &&
                                  std::abs(tone - top) < kAlike
                              ? 1
                              : 0;
        }
    }
    tones.pixels = std::int64_t{width} * height;
    return tones;
}

/// Ink of one color on paper that is purely white, with grey pixels at the edges of strokes at most.
bool isBlackAndWhite(const Tones& tones) {
    return tones.white > tones.pixels / 2 && tones.flat < tones.pixels / 500;
}

/// Few pixels differ from their neighbours, which PNG keeps in less room than JPEG.
bool isFlat(const Tones& tones) {
    return tones.same > tones.pixels / 10 * 9;
}

std::optional<EncodedPage> encodedAs(const Picture& picture, const char* extension) {
    auto bytes = encodePicture(picture, extension, kJpegQuality);
    return bytes ? std::optional(EncodedPage{std::move(*bytes), extension}) : std::nullopt;
}

std::optional<EncodedPage> encodeRendered(const Picture& picture) {
    constexpr int kMiddle = 128;
    const bool color = picture.depth() == 32;
    const PixPtr grey(color ? pixConvertRGBToLuminance(picture.pix()) : pixClone(picture.pix()));
    if (!grey)
        return std::nullopt;
    const Tones tones = tonesOf(grey.get());
    if (!color && isBlackAndWhite(tones))
        return encodedAs(Picture::adopt(pixThresholdToBinary(grey.get(), kMiddle)), "tif");
    return encodedAs(picture, isFlat(tones) ? "png" : "jpg");
}

} // namespace

std::optional<EncodedPage> encodePage(const Picture& picture, PageEncoding encoding) {
    silenceLeptonica();
    if (picture.isNil())
        return std::nullopt;
    if (picture.depth() == 1)
        return encodedAs(picture, "tif");
    if (encoding == PageEncoding::Rendered)
        return encodeRendered(picture);
    return encodedAs(picture, encoding == PageEncoding::Lossless ? "png" : "jpg");
}

Picture turnedPicture(const Picture& picture, int degrees) {
    silenceLeptonica();
    if (degrees == 0)
        return picture;
    if (degrees == 180)
        return Picture::adopt(pixRotate180(nullptr, picture.pix()));
    return Picture::adopt(pixRotate90(picture.pix(), degrees == 90 ? 1 : -1));
}

Picture columnsOf(const Picture& picture, int left, int right) {
    silenceLeptonica();
    Box* box = boxCreate(left, 0, right - left, picture.Height());
    Pix* columns = box == nullptr ? nullptr : pixClipRectangle(picture.pix(), box, nullptr);
    boxDestroy(&box);
    return Picture::adopt(columns);
}

} // namespace velmarin
