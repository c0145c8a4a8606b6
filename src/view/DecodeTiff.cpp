#include "view/DecodeTiff.h"

#include "view/Picture.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>

#include <tiffio.h>

namespace velmarin {
namespace {

/// The largest allocation of libtiff: a picture in one strip of 16 bits per pixel.
constexpr tmsize_t kMaxAllocation = tmsize_t{2} * kMaxPixels + (1 << 20);

/// A file in memory for libtiff, and the first error that libtiff reports.
struct MemoryFile {
    std::string_view bytes;
    std::uint64_t at = 0;
    std::string error;

    static MemoryFile& of(thandle_t handle) { return *static_cast<MemoryFile*>(handle); }

    static tmsize_t read(thandle_t handle, void* to, tmsize_t count) {
        MemoryFile& self = of(handle);
        if (count <= 0 || self.at >= self.bytes.size())
            return 0;
        const std::size_t got = std::min<std::size_t>(static_cast<std::size_t>(count), self.bytes.size() - self.at);
        std::memcpy(to, self.bytes.data() + self.at, got);
        self.at += got;
        return static_cast<tmsize_t>(got);
    }
    static toff_t seek(thandle_t handle, toff_t offset, int whence) {
        MemoryFile& self = of(handle);
        const std::uint64_t from = whence == SEEK_CUR ? self.at : whence == SEEK_END ? self.bytes.size() : 0;
        return self.at = from + offset;
    }
    /// Without a mapping, libtiff 4.5 refuses uncompressed tiles whose size is not a multiple of 1024 bytes.
    static int map(thandle_t handle, void** base, toff_t* size) {
        *base = const_cast<char*>(of(handle).bytes.data());
        *size = of(handle).bytes.size();
        return 1;
    }
    static int note(TIFF*, void* self, const char*, const char* format, va_list values) {
        auto& file = *static_cast<MemoryFile*>(self);
        if (file.error.empty()) {
            char text[300];
            std::vsnprintf(text, sizeof text, format, values);
            file.error = text;
        }
        return 1;
    }
    static int ignore(TIFF*, void*, const char*, const char*, va_list) { return 1; }
};

struct TiffCloser {
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};
using TiffPtr = std::unique_ptr<TIFF, TiffCloser>;

TiffPtr open(MemoryFile& file) {
    const std::unique_ptr<TIFFOpenOptions, decltype(&TIFFOpenOptionsFree)> options(TIFFOpenOptionsAlloc(),
                                                                                   &TIFFOpenOptionsFree);
    if (!options)
        return nullptr;
    TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), kMaxAllocation);
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), &MemoryFile::note, &file);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), &MemoryFile::ignore, &file);
    return TiffPtr(TIFFClientOpenExt(
        "picture", "r", &file, &MemoryFile::read, [](thandle_t, void*, tmsize_t) -> tmsize_t { return 0; },
        &MemoryFile::seek, [](thandle_t) { return 0; },
        [](thandle_t handle) -> toff_t { return MemoryFile::of(handle).bytes.size(); }, &MemoryFile::map,
        [](thandle_t, void*, toff_t) {}, options.get()));
}

template <typename Value> Value tag(TIFF* tiff, std::uint32_t which, Value otherwise) {
    Value value = otherwise;
    return TIFFGetFieldDefaulted(tiff, which, &value) == 1 ? value : otherwise;
}

struct Header {
    std::uint32_t width, height;
    std::uint16_t bits, samples, photometric, compression, orientation, format;

    explicit Header(TIFF* tiff)
        : width(tag<std::uint32_t>(tiff, TIFFTAG_IMAGEWIDTH, 0)),
          height(tag<std::uint32_t>(tiff, TIFFTAG_IMAGELENGTH, 0)),
          bits(tag<std::uint16_t>(tiff, TIFFTAG_BITSPERSAMPLE, 1)),
          samples(tag<std::uint16_t>(tiff, TIFFTAG_SAMPLESPERPIXEL, 1)),
          photometric(tag<std::uint16_t>(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISWHITE)),
          compression(tag<std::uint16_t>(tiff, TIFFTAG_COMPRESSION, COMPRESSION_NONE)),
          orientation(tag<std::uint16_t>(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT)),
          format(tag<std::uint16_t>(tiff, TIFFTAG_SAMPLEFORMAT, SAMPLEFORMAT_UINT)) {}

    /// Whether the picture has one sample per pixel, of ink or light, which is read in its own depth. Everything else
    /// goes through libtiff's conversion to color.
    bool plain() const {
        return samples == 1 && (photometric == PHOTOMETRIC_MINISWHITE || photometric == PHOTOMETRIC_MINISBLACK) &&
               (bits == 1 || bits == 2 || bits == 4 || bits == 8 || bits == 16) && compression != COMPRESSION_OJPEG &&
               (format == SAMPLEFORMAT_UINT || format == SAMPLEFORMAT_VOID);
    }
};

/// Passes each row of each strip or tile of a plain picture to `takeRow(y, x, bytes, pixels)`. False if one cannot be
/// read.
template <typename TakeRow> bool readPlain(TIFF* tiff, const Header& header, TakeRow takeRow) {
    const bool tiled = TIFFIsTiled(tiff) != 0;
    const tmsize_t size = tiled ? TIFFTileSize(tiff) : TIFFStripSize(tiff);
    const tmsize_t rowSize = tiled ? TIFFTileRowSize(tiff) : TIFFScanlineSize(tiff);
    const auto wide = tiled ? tag<std::uint32_t>(tiff, TIFFTAG_TILEWIDTH, 0) : header.width;
    const auto high = std::min(tiled ? tag<std::uint32_t>(tiff, TIFFTAG_TILELENGTH, 0)
                                     : tag<std::uint32_t>(tiff, TIFFTAG_ROWSPERSTRIP, header.height),
                               tiled ? 0xffffffffu : header.height);
    if (size <= 0 || size > kMaxAllocation || rowSize <= 0 || wide == 0 || high == 0)
        return false;
    const std::unique_ptr<std::uint8_t[]> bytes(new (std::nothrow) std::uint8_t[static_cast<std::size_t>(size)]);
    if (!bytes)
        return false;
    for (std::uint32_t y = 0; y < header.height; y += std::min(high, header.height - y)) {
        for (std::uint32_t x = 0; x < header.width; x += std::min(wide, header.width - x)) {
            const std::uint32_t which = tiled ? TIFFComputeTile(tiff, x, y, 0, 0) : TIFFComputeStrip(tiff, y, 0);
            const std::uint32_t rows = std::min(high, header.height - y);
            const tmsize_t need = tmsize_t{rows} * rowSize;
            const tmsize_t got = tiled ? TIFFReadEncodedTile(tiff, which, bytes.get(), size)
                                       : TIFFReadEncodedStrip(tiff, which, bytes.get(), size);
            if (got < need)
                return false;
            for (std::uint32_t row = 0; row < rows; ++row)
                takeRow(y + row, x, bytes.get() + tmsize_t{row} * rowSize, std::min(wide, header.width - x));
        }
    }
    return true;
}

/// Sample i of a row of 2, 4, 8 or 16 bits per sample, scaled to 8 bits.
std::uint8_t sampleAt(const std::uint8_t* bytes, std::uint32_t i, int bits) {
    if (bits == 8)
        return bytes[i];
    if (bits == 16) {
        std::uint16_t value = 0;
        std::memcpy(&value, bytes + std::size_t{2} * i, 2);
        return static_cast<std::uint8_t>((value * 255u + 32767u) / 65535u);
    }
    const auto inByte = static_cast<std::uint32_t>(8 / bits);
    const int shift = 8 - bits * static_cast<int>(i % inByte + 1);
    const int most = (1 << bits) - 1;
    return static_cast<std::uint8_t>((bytes[i / inByte] >> shift & most) * 255 / most);
}

DecodedPix decodePlain(TIFF* tiff, const Header& header, const MemoryFile& file) {
    PixPtr pix = newPix(static_cast<int>(header.width), static_cast<int>(header.height), header.bits == 1 ? 1 : 8);
    if (!pix)
        return DecodedPix::noMemory();
    const std::ptrdiff_t words = pixGetWpl(pix.get());
    l_uint32* data = pixGetData(pix.get());
    const std::uint8_t flip = header.photometric == PHOTOMETRIC_MINISWHITE ? 0xff : 0;
    const bool read =
        readPlain(tiff, header, [&](std::uint32_t y, std::uint32_t x, const std::uint8_t* bytes, std::uint32_t pixels) {
            l_uint32* row = data + std::ptrdiff_t{y} * words;
            if (header.bits == 1) // a tile begins at a whole byte
                std::memcpy(reinterpret_cast<std::uint8_t*>(row) + x / 8, bytes, (pixels + 7) / 8);
            else
                for (std::uint32_t i = 0; i < pixels; ++i)
                    SET_DATA_BYTE(row, x + i, sampleAt(bytes, i, header.bits) ^ flip);
        });
    if (!read)
        return DecodedPix::failed(file.error.empty() ? "a part of the picture cannot be read" : file.error);
    if (header.bits == 1) {
        pixEndianByteSwap(pix.get());
        if (header.photometric == PHOTOMETRIC_MINISBLACK)
            pixInvert(pix.get(), pix.get());
    }
    return {std::move(pix), {}};
}

DecodedPix decodeColor(TIFF* tiff, const Header& header, const MemoryFile& file) {
    TIFFRGBAImage image{};
    char why[1024] = {};
    if (TIFFRGBAImageBegin(&image, tiff, 1, why) == 0)
        return DecodedPix::failed(why);
    const std::unique_ptr<TIFFRGBAImage, decltype(&TIFFRGBAImageEnd)> ended(&image, &TIFFRGBAImageEnd);
    image.req_orientation = image.orientation; // decodeTiff turns the picture
    PixPtr pix = newPix(static_cast<int>(header.width), static_cast<int>(header.height), 32);
    if (!pix)
        return DecodedPix::noMemory();
    l_uint32* data = pixGetData(pix.get());
    if (TIFFRGBAImageGet(&image, data, header.width, header.height) == 0)
        return DecodedPix::failed(file.error.empty() ? "the picture cannot be read" : file.error);
    // libtiff's words hold red in the lowest bits, and colors that are already multiplied by alpha.
    const auto pixels = static_cast<std::size_t>(header.width) * header.height;
    for (std::size_t i = 0; i < pixels; ++i) {
        const std::uint32_t word = data[i];
        const std::uint32_t paper = image.alpha != 0 ? 255 - TIFFGetA(word) : 0;
        auto over = [&](std::uint32_t light) { return std::min(light + paper, 255u); };
        data[i] = over(TIFFGetR(word)) << 24 | over(TIFFGetG(word)) << 16 | over(TIFFGetB(word)) << 8 | 0xff;
    }
    return {inSmallestDepth(std::move(pix)), {}};
}

/// Turns a picture whose first row is not its top or whose first column is not its left.
PixPtr upright(PixPtr pix, int orientation) {
    const bool sideways = orientation >= ORIENTATION_LEFTTOP && orientation <= ORIENTATION_LEFTBOT;
    if (sideways) {
        const bool fromLeft = orientation == ORIENTATION_LEFTTOP || orientation == ORIENTATION_LEFTBOT;
        pix.reset(pixRotate90(pix.get(), fromLeft ? -1 : 1));
    }
    if (!pix)
        return pix;
    if (orientation == ORIENTATION_TOPRIGHT)
        pixFlipLR(pix.get(), pix.get());
    else if (orientation == ORIENTATION_BOTRIGHT)
        pixRotate180(pix.get(), pix.get());
    else if (orientation == ORIENTATION_BOTLEFT || orientation == ORIENTATION_LEFTTOP ||
             orientation == ORIENTATION_RIGHTBOT)
        pixFlipTB(pix.get(), pix.get());
    return pix;
}

} // namespace

DecodedPix decodeTiff(std::string_view bytes) {
    MemoryFile file{.bytes = bytes, .at = 0, .error = {}};
    const TiffPtr tiff = open(file);
    if (!tiff)
        return DecodedPix::failed(file.error.empty() ? "its content is not a TIFF picture" : file.error);
    const Header header(tiff.get());
    if (!isPictureSize(header.width, header.height))
        return DecodedPix::tooLarge(header.width, header.height);
    DecodedPix decoded = header.plain() ? decodePlain(tiff.get(), header, file) : decodeColor(tiff.get(), header, file);
    if (!decoded.pix)
        return decoded;
    decoded.pix = upright(std::move(decoded.pix), header.orientation);
    return decoded.pix ? std::move(decoded) : DecodedPix::noMemory();
}

} // namespace velmarin
