#include "view/DecodeByLeptonica.h"

#include "view/DecodeByMagick.h"
#include "view/Picture.h"

#include <cstdlib>

namespace velmarin {
namespace {

/// JPEG 2000 is decoded to four bytes per sample.
constexpr std::int64_t kMaxJpeg2000Pixels = 100'000'000;

const l_uint8* bytesOf(std::string_view bytes) {
    return reinterpret_cast<const l_uint8*>(bytes.data());
}

std::uint32_t littleEndian(std::string_view bytes, std::size_t at, int count) {
    std::uint32_t value = 0;
    for (int i = count - 1; i >= 0; --i)
        value = value << 8 | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
    return value;
}

} // namespace

DecodedPix decodeBmp(std::string_view bytes) {
    silenceLeptonica();
    if (bytes.size() < 26)
        return DecodedPix::failed("the file ends before the picture begins");
    const bool old = littleEndian(bytes, 14, 4) == 12;
    const auto width = static_cast<std::int32_t>(littleEndian(bytes, 18, old ? 2 : 4));
    const auto height = std::int64_t{static_cast<std::int32_t>(littleEndian(bytes, old ? 20 : 22, old ? 2 : 4))};
    if (!isPictureSize(width, std::abs(height)))
        return DecodedPix::tooLarge(width, height);
    PixPtr pix = normalForm(PixPtr(pixReadMemBmp(bytesOf(bytes), bytes.size())));
    if (pix)
        return {std::move(pix), {}};
    return decodeByMagick(bytes, "BMP"); // run-length coding, bit fields and other rare kinds
}

DecodedPix decodeJpeg2000(std::string_view bytes) {
    silenceLeptonica();
    l_int32 width = 0, height = 0, bits = 0, samples = 0;
    if (readHeaderMemJp2k(bytesOf(bytes), bytes.size(), &width, &height, &bits, &samples, nullptr) != 0)
        return DecodedPix::failed("its header is damaged");
    if (!isPictureSize(width, height) || std::int64_t{width} * height > kMaxJpeg2000Pixels)
        return DecodedPix::tooLarge(width, height);
    PixPtr pix = normalForm(PixPtr(pixReadMemJp2k(bytesOf(bytes), bytes.size(), 1, nullptr, 0, 0)));
    return pix ? DecodedPix{std::move(pix), {}} : DecodedPix::failed("the picture cannot be read");
}

} // namespace velmarin
