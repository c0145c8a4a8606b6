#include "view/Formats.h"

#include "view/Picture.h"

#include <bit>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include <magick/api.h>

namespace velmarin {
namespace {

/// JPEG 2000 is decoded to four bytes a sample.
constexpr std::int64_t maxJpeg2000Pixels = 100'000'000;
/// GraphicsMagick uses eight bytes a pixel; it may take two gigabytes and no disk.
constexpr magick_int64_t maxMagickMemory = magick_int64_t{1} << 31;

const l_uint8* bytesOf(std::string_view bytes) {
    return reinterpret_cast<const l_uint8*>(bytes.data());
}

std::uint32_t littleEndian(std::string_view bytes, std::size_t at, int count) {
    std::uint32_t value = 0;
    for (int i = count - 1; i >= 0; --i)
        value = value << 8 | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
    return value;
}

/// The formats that GraphicsMagick reads here (JPEG within PICT). All others are unregistered, so no content makes it
/// run a program, read another file or fetch one.
bool isWanted(std::string_view format) {
    for (const std::string_view wanted :
         {"PICT", "GIF", "WEBP", "PNM", "PBM", "PGM", "PPM", "PCX", "TGA", "BMP", "JPEG"})
        if (format == wanted)
            return true;
    return false;
}

void forgetOtherFormats(ExceptionInfo& exception) {
    MagickInfo** formats = GetMagickInfoArray(&exception);
    if (formats == nullptr)
        return;
    std::vector<std::string> unwanted;
    for (MagickInfo** format = formats; *format != nullptr; ++format)
        if (!isWanted((*format)->name))
            unwanted.emplace_back((*format)->name);
    MagickFree(formats);
    for (const std::string& name : unwanted)
        UnregisterMagickInfo(name.c_str());
}

void initialiseMagick() {
    static const bool done = [] {
        ExceptionInfo ignored;
        GetExceptionInfo(&ignored);
        InitializeMagickEx(nullptr, MAGICK_OPT_NO_SIGNAL_HANDER, &ignored);
        forgetOtherFormats(ignored);
        DestroyExceptionInfo(&ignored);
        SetErrorHandler([](ExceptionType, const char*, const char*) {});
        SetWarningHandler([](ExceptionType, const char*, const char*) {});
        SetMagickResourceLimit(ThreadsResource, 1);
        SetMagickResourceLimit(WidthResource, maxSide);
        SetMagickResourceLimit(HeightResource, maxSide);
        SetMagickResourceLimit(PixelsResource, maxMagickMemory / 8);
        SetMagickResourceLimit(MemoryResource, maxMagickMemory);
        SetMagickResourceLimit(MapResource, 0);
        SetMagickResourceLimit(DiskResource, 0);
        return true;
    }();
    static_cast<void>(done);
}

struct Exception {
    ExceptionInfo info;
    Exception() { GetExceptionInfo(&info); }
    ~Exception() { DestroyExceptionInfo(&info); }
    Exception(const Exception&) = delete;
    Exception& operator=(const Exception&) = delete;

    std::string text() const {
        if (info.reason == nullptr)
            return "the picture cannot be read";
        return info.description != nullptr ? std::string(info.reason) + " (" + info.description + ")" : info.reason;
    }
};

using ImagePtr = std::unique_ptr<Image, decltype(&DestroyImageList)>;

DecodedPix toPix(const Image* image) {
    const auto width = static_cast<std::int64_t>(image->columns);
    const auto height = static_cast<std::int64_t>(image->rows);
    if (!isPictureSize(width, height))
        return DecodedPix::tooLarge(width, height);
    PixPtr pix = newPix(static_cast<int>(width), static_cast<int>(height), 32);
    if (!pix)
        return DecodedPix::noMemory();
    const char* order = std::endian::native == std::endian::little ? "ABGR" : "RGBA";
    Exception exception;
    for (long y = 0; y < height; ++y)
        if (DispatchImage(image, 0, y, image->columns, 1, order, CharPixel,
                          pixGetData(pix.get()) + y * pixGetWpl(pix.get()), &exception.info) != MagickPass)
            return DecodedPix::failed(exception.text());
    if (image->matte != MagickFalse)
        blendOverWhite(pix.get());
    return {leanest(std::move(pix)), {}};
}

} // namespace

DecodedPix decodeByMagick(std::string_view bytes, const char* format) {
    initialiseMagick();
    const std::unique_ptr<ImageInfo, decltype(&DestroyImageInfo)> info(CloneImageInfo(nullptr), &DestroyImageInfo);
    std::strncpy(info->magick, format, MaxTextExtent - 1);
    info->affirm = MagickTrue; // otherwise the content could choose another format
    info->subrange = 1;
    Exception exception;
    {
        const ImagePtr header(PingBlob(info.get(), bytes.data(), bytes.size(), &exception.info), &DestroyImageList);
        if (!header)
            return DecodedPix::failed(exception.text());
        const auto width = static_cast<std::int64_t>(header->columns);
        const auto height = static_cast<std::int64_t>(header->rows);
        if (!isPictureSize(width, height))
            return DecodedPix::tooLarge(width, height);
    }
    const ImagePtr image(BlobToImage(info.get(), bytes.data(), bytes.size(), &exception.info), &DestroyImageList);
    if (!image || exception.info.severity >= ErrorException)
        return DecodedPix::failed(exception.text());
    return toPix(image.get());
}

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
    if (!isPictureSize(width, height) || std::int64_t{width} * height > maxJpeg2000Pixels)
        return DecodedPix::tooLarge(width, height);
    PixPtr pix = normalForm(PixPtr(pixReadMemJp2k(bytesOf(bytes), bytes.size(), 1, nullptr, 0, 0)));
    return pix ? DecodedPix{std::move(pix), {}} : DecodedPix::failed("the picture cannot be read");
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
