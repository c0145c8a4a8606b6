#include "view/DecodeByMagick.h"

#include "view/Picture.h"

#include <bit>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include <magick/api.h>

namespace velmarin {
namespace {

/// GraphicsMagick uses eight bytes per pixel. It may take two gigabytes of memory, and no disk space.
constexpr magick_int64_t kMaxMagickMemory = magick_int64_t{1} << 31;

/// The formats that GraphicsMagick reads here (JPEG occurs in PICT). All others are unregistered.
bool isWanted(std::string_view format) {
    for (const std::string_view wanted :
         {"PICT", "GIF", "WEBP", "PNM", "PBM", "PGM", "PPM", "PCX", "TGA", "BMP", "JPEG"})
        if (format == wanted)
            return true;
    return false;
}

void unregisterOtherFormats(ExceptionInfo& exception) {
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
    return {inSmallestDepth(std::move(pix)), {}};
}

} // namespace

void initializeMagick() {
    static const bool done = [] {
        ExceptionInfo ignored;
        GetExceptionInfo(&ignored);
        InitializeMagickEx(nullptr, MAGICK_OPT_NO_SIGNAL_HANDER, &ignored);
        unregisterOtherFormats(ignored);
        DestroyExceptionInfo(&ignored);
        SetErrorHandler([](ExceptionType, const char*, const char*) {});
        SetWarningHandler([](ExceptionType, const char*, const char*) {});
        SetMagickResourceLimit(ThreadsResource, 1);
        SetMagickResourceLimit(WidthResource, kMaxSide);
        SetMagickResourceLimit(HeightResource, kMaxSide);
        SetMagickResourceLimit(PixelsResource, kMaxMagickMemory / 8);
        SetMagickResourceLimit(MemoryResource, kMaxMagickMemory);
        SetMagickResourceLimit(MapResource, 0);
        SetMagickResourceLimit(DiskResource, 0);
        return true;
    }();
    static_cast<void>(done);
}

DecodedPix decodeByMagick(std::string_view bytes, const char* format) {
    initializeMagick();
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

} // namespace velmarin
