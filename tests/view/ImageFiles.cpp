#include "ImageFiles.h"

#include "support/TempFolder.h"
#include "view/PixTools.h"

#include <algorithm>
#include <cstdio>
#include <random>
#include <stdexcept>

#include <jpeglib.h>
#include <sys/resource.h>
#include <tiffio.h>

namespace velmarin::test {

Picture drawn(int width, int height, int depth, const std::function<std::uint32_t(int, int)>& value) {
    Pix* pix = pixCreate(width, height, depth);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            pixSetPixel(pix, x, y, depth == 32 ? value(x, y) << 8 : value(x, y) & (depth == 8 ? 0xffu : 1u));
    return Picture::adopt(pix);
}

Picture noise(int width, int height, int depth, unsigned seed) {
    std::mt19937 random(seed);
    Pix* pix = pixCreate(width, height, depth);
    l_uint32* words = pixGetData(pix);
    for (std::ptrdiff_t i = 0; i < std::ptrdiff_t{pixGetWpl(pix)} * height; ++i)
        words[i] = static_cast<l_uint32>(random()) | (depth == 32 ? 0xff : 0);
    return Picture::adopt(pix);
}

std::string asText(const Picture& picture) {
    const auto letter = [](Color c) {
        if (c.red == c.green && c.green == c.blue)
            return "0123456789abcdef"[c.red >> 4];
        return c == RGB(255, 0, 0) ? 'R' : c == RGB(0, 255, 0) ? 'G' : c == RGB(0, 0, 255) ? 'B' : '?';
    };
    std::string text;
    for (int y = 0; y < picture.Height(); ++y) {
        text += y > 0 ? "/" : "";
        for (int x = 0; x < picture.Width(); ++x)
            text += letter(picture.pixel(x, y));
    }
    return text;
}

std::string encoded(Pix* pix, int format) {
    l_uint8* data = nullptr;
    std::size_t size = 0;
    if (pixWriteMem(&data, &size, pix, format) != 0)
        throw std::runtime_error("a fixture could not be written");
    std::string bytes(reinterpret_cast<const char*>(data), size);
    lept_free(data);
    return bytes;
}

DecodedPicture decoded(const std::string& name, std::string_view bytes) {
    const TempFolder folder;
    return decodePicture(FolderItem(folder.write(name, bytes)));
}

std::string tiff(Pix* pix, const TiffLayout& l) {
    const TempFolder folder;
    TIFF* out = TIFFOpen((folder.path() / "t.tif").c_str(), "w");
    const int width = pixGetWidth(pix), height = pixGetHeight(pix), depth = pixGetDepth(pix);
    const int wide = l.tile > 0 ? l.tile : width, high = l.tile > 0 ? l.tile : 7;
    const std::pair<int, int> tags[] = {{TIFFTAG_IMAGEWIDTH, width},
                                        {TIFFTAG_IMAGELENGTH, height},
                                        {TIFFTAG_BITSPERSAMPLE, depth == 1 ? 1 : 8},
                                        {TIFFTAG_SAMPLESPERPIXEL, depth == 32 ? l.samples : 1},
                                        {TIFFTAG_PHOTOMETRIC, l.photometric},
                                        {TIFFTAG_COMPRESSION, l.compression},
                                        {TIFFTAG_ORIENTATION, l.orientation},
                                        {TIFFTAG_PLANARCONFIG, l.planes ? 2 : 1},
                                        {TIFFTAG_SAMPLEFORMAT, l.sampleFormat},
                                        {l.tile > 0 ? TIFFTAG_TILEWIDTH : TIFFTAG_ROWSPERSTRIP, high},
                                        {l.tile > 0 ? TIFFTAG_TILELENGTH : TIFFTAG_ROWSPERSTRIP, high}};
    for (const auto& [tag, value] : tags)
        TIFFSetField(out, static_cast<std::uint32_t>(tag), value);
    const std::uint16_t alpha = EXTRASAMPLE_UNASSALPHA;
    if (l.samples == 4)
        TIFFSetField(out, TIFFTAG_EXTRASAMPLES, 1, &alpha);
    std::uint32_t number = 0;
    for (int plane = 0; plane < (l.planes && depth == 32 ? 3 : 1); ++plane)
        for (int top = 0; top < height; top += high)
            for (int left = 0; left < width; left += wide) {
                const int rows = l.tile > 0 ? high : std::min(high, height - top);
                const PixPtr block(pixCreate(wide, rows, depth));
                pixRasterop(block.get(), 0, 0, wide, rows, PIX_SRC, pix, left, top);
                pixEndianByteSwap(block.get());
                std::string bytes;
                for (int y = 0; y < rows; ++y) {
                    const auto* row = reinterpret_cast<const char*>(pixGetData(block.get()) +
                                                                    std::ptrdiff_t{y} * pixGetWpl(block.get()));
                    if (depth != 32)
                        bytes.append(row, static_cast<std::size_t>((wide * depth + 7) / 8));
                    for (int x = 0; depth == 32 && x < wide; ++x)
                        bytes.append(row + 4 * x + plane, static_cast<std::size_t>(l.planes ? 1 : l.samples));
                }
                (l.tile > 0 ? TIFFWriteEncodedTile : TIFFWriteEncodedStrip)(out, number++, bytes.data(),
                                                                            static_cast<tmsize_t>(bytes.size()));
            }
    TIFFClose(out);
    return folder.read("t.tif");
}

std::string cmykJpeg(bool adobe) {
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* data = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &data, &size);
    info.image_width = info.image_height = 16;
    info.input_components = 4;
    info.in_color_space = JCS_CMYK;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, 100, TRUE);
    info.write_Adobe_marker = adobe ? TRUE : FALSE;
    jpeg_start_compress(&info, TRUE);
    std::string row;
    for (int x = 0; x < 16; ++x)
        for (const int ink : {200, 30, 30, 100})
            row += static_cast<char>(adobe ? 255 - ink : ink);
    auto* bytes = reinterpret_cast<JSAMPLE*>(row.data());
    while (info.next_scanline < info.image_height)
        jpeg_write_scanlines(&info, &bytes, 1);
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    std::string file(reinterpret_cast<const char*>(data), size);
    std::free(data);
    return file;
}

namespace {

std::string words(std::initializer_list<int> values) {
    std::string bytes;
    for (const int value : values)
        bytes.append({static_cast<char>(value >> 8 & 0xff), static_cast<char>(value & 0xff)});
    return bytes;
}

std::string bytesOf(std::string_view hexadecimal) {
    std::string bytes, digits;
    for (const char c : hexadecimal) {
        if (c != ' ')
            digits += c;
        if (digits.size() == 2) {
            bytes += static_cast<char>(std::stoi(digits, nullptr, 16));
            digits.clear();
        }
    }
    return bytes;
}

} // namespace

std::string pict(const std::vector<PictMapLayout>& maps, int version) {
    std::string out(512, '\0');
    const auto opcode = [&](int value) {
        if (version == 2 && out.size() % 2 != 0)
            out += '\0';
        out += version == 2 ? words({value}) : std::string(1, static_cast<char>(value));
    };
    const PictMapLayout& first = maps.front();
    const int count = static_cast<int>(maps.size()), right = 20 + first.width * first.scale;
    out += words({0, 10, 20, 10 + 2 * count * first.scale, right});
    out += version == 2 ? words({0x11, 0x2ff, 0xc00, -1, -1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}) : words({0x1101});
    opcode(0x01); // clipping region
    out += words({10, 0, 0, 2000, 2000});
    // Opcodes that draw nothing, by the size of their operands.
    const std::pair<std::size_t, std::vector<int>> ignored[] = {{0, {0x00, 0x1c, 0x1e}},
                                                                {1, {0x04}},
                                                                {2, {0x03, 0x05, 0x08, 0x0d, 0x15, 0x16, 0xa0}},
                                                                {4, {0x06, 0x07, 0x0b, 0x0c, 0x0e, 0x0f}},
                                                                {6, {0x1a, 0x1b, 0x1d, 0x1f}},
                                                                {8, {0x02, 0x09, 0x0a, 0x10}}};
    for (const auto& [size, opcodes] : ignored)
        for (const int each : opcodes) {
            opcode(each);
            out.append(size, '\xff');
        }
    opcode(0xa1); // comment
    out += words({100, 3}) + "\xff\xff\xff";
    int top = 10;
    for (const PictMapLayout& m : maps) {
        const int rowBytes = m.bits == 1 ? (m.width + 15) / 16 * 2 : m.width * m.bits / 8;
        opcode(m.opcode);
        if (m.bits > 8)
            out += words({0, 0xff});
        out += words({rowBytes | (m.bits > 1 ? 0x8000 : 0), 3, 5, 5, 5 + m.width});
        if (m.bits > 1)
            out += words({0, m.packType, 0, 0, 72, 0, 72, 0, m.bits > 8 ? 16 : 0, m.bits, m.components, 8, 0, 0, 0, 0,
                          0, 0}) +
                   bytesOf(m.table);
        out += words({3, 5, 5, 5 + m.width, top, 20, top + 2 * m.scale, right, 0});
        if (m.opcode % 2 != 0)
            out += words({10, 3, 5, 5, 5 + m.width});
        out += bytesOf(m.data);
        top += 2 * m.scale;
    }
    opcode(0xff);
    return out;
}

std::string smallPict() {
    return pict({{0x90, 8, 1, "f000 0f00", ""}});
}

long mostMemory() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

} // namespace velmarin::test
