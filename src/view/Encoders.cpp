#include "view/Encoders.h"

#include "text/LetterCase.h"
#include "view/PixTools.h"

#include <algorithm>
#include <array>

namespace velmarin {
namespace {

PixPtr greyOf(const Picture& picture) {
    if (picture.depth() == 32)
        return PixPtr(pixConvertRGBToLuminance(picture.pix()));
    return PixPtr(pixConvertTo8(picture.pix(), 0));
}

/// The threshold of an 8-bit picture.
int thresholdOf(Pix* grey) {
    std::array<std::int64_t, 256> count{};
    for (int y = 0; y < pixGetHeight(grey); ++y) {
        const l_uint32* row = pixGetData(grey) + std::ptrdiff_t{y} * pixGetWpl(grey);
        for (int x = 0; x < pixGetWidth(grey); ++x)
            ++count[GET_DATA_BYTE(row, x)];
    }
    double all = 0, sum = 0;
    for (int i = 0; i < 256; ++i) {
        all += static_cast<double>(count[static_cast<std::size_t>(i)]);
        sum += i * static_cast<double>(count[static_cast<std::size_t>(i)]);
    }
    double dark = 0, darkSum = 0, best = -1;
    int first = 128, last = 128; // range of equally good thresholds
    for (int i = 0; i < 255; ++i) {
        dark += static_cast<double>(count[static_cast<std::size_t>(i)]);
        darkSum += i * static_cast<double>(count[static_cast<std::size_t>(i)]);
        if (dark == 0 || dark == all)
            continue;
        const double apart = darkSum / dark - (sum - darkSum) / (all - dark);
        const double variance = dark * (all - dark) * apart * apart;
        if (variance > best) {
            best = variance;
            first = i;
        }
        if (variance == best)
            last = i;
    }
    return best < 0 ? 128 : (first + last) / 2 + 1;
}

PixPtr bilevel(const Picture& picture) {
    if (picture.depth() == 1)
        return PixPtr(pixClone(picture.pix()));
    const PixPtr grey = greyOf(picture);
    return grey ? PixPtr(pixThresholdToBinary(grey.get(), thresholdOf(grey.get()))) : nullptr;
}

/// `write` is an `l_ok (l_uint8** data, std::size_t* size, Pix* pix)`.
template <typename Writer> std::optional<std::string> encodedBy(Pix* pix, Writer write) {
    l_uint8* data = nullptr;
    std::size_t size = 0;
    std::optional<std::string> bytes;
    if (pix != nullptr && write(&data, &size, pix) == 0 && data != nullptr && size > 0)
        bytes.emplace(reinterpret_cast<const char*>(data), size);
    lept_free(data);
    return bytes;
}

} // namespace

int otsuThreshold(const Picture& picture) {
    const PixPtr grey = greyOf(picture);
    return grey ? thresholdOf(grey.get()) : 128;
}

std::optional<std::string> encodePicture(const Picture& picture, std::string_view extension, int jpegQuality) {
    if (picture.isNil())
        return std::nullopt;
    silenceLeptonica();
    auto is = [&](std::string_view name) { return equalStrings(extension, name); };
    if (is("tif") || is("tiff")) {
        const PixPtr ink = bilevel(picture);
        return encodedBy(ink.get(), [](l_uint8** data, std::size_t* size, Pix* pix) {
            return pixWriteMemTiff(data, size, pix, IFF_TIFF_G4);
        });
    }
    if (is("jpg") || is("jpeg")) {
        constexpr int maxJpegSide = 65500; // beyond it libjpeg writes to standard error
        if (std::max(picture.Width(), picture.Height()) > maxJpegSide)
            return std::nullopt;
        const PixPtr deep(picture.depth() == 1 ? pixConvertTo8(picture.pix(), 0) : pixClone(picture.pix()));
        if (deep)
            pixSetChromaSampling(deep.get(), 0);
        return encodedBy(deep.get(), [jpegQuality](l_uint8** data, std::size_t* size, Pix* pix) {
            return pixWriteMemJpeg(data, size, pix, jpegQuality, 0);
        });
    }
    if (is("bmp"))
        return encodedBy(picture.pix(), &pixWriteMemBmp);
    return encodedBy(picture.pix(),
                     [](l_uint8** data, std::size_t* size, Pix* pix) { return pixWriteMemPng(data, size, pix, 0.0F); });
}

} // namespace velmarin
