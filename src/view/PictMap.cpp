#include "view/PictMap.h"

#include "view/PixTools.h"

#include <array>
#include <string>
#include <vector>

namespace velmarin {
namespace {

constexpr int kFirstPackedOpcode = 0x98;
constexpr int kFirstDirectOpcode = 0x9a;

struct MapHeader {
    int rowBytes = 0;
    int bits = 1;
    int packType = 0;
    int components = 1;
    bool packed = false;
    std::array<std::uint32_t, 256> table{}; ///< 0xRRGGBB00
};

void readTable(PictReader& in, MapHeader& header) {
    in.skip(4);
    const bool inOrder = (in.word() & 0x8000) != 0;
    const int last = in.word();
    for (int i = 0; i <= last; ++i) {
        const int value = in.word();
        const int red = in.word(), green = in.word(), blue = in.word();
        const auto index = static_cast<std::size_t>((inOrder ? i : value) & 0xff);
        header.table[index] = static_cast<std::uint32_t>(red >> 8) << 24 |
                              static_cast<std::uint32_t>(green >> 8) << 16 | static_cast<std::uint32_t>(blue >> 8) << 8;
    }
}

/// The bytes of a row that is not packed. Packing type 2 leaves out the first byte of each pixel.
std::size_t plainRowBytes(const MapHeader& header) {
    return static_cast<std::size_t>(header.bits == 32 && header.packType == 2 ? header.rowBytes / 4 * 3
                                                                              : header.rowBytes);
}

/// One row, unpacked and padded with 0. A run repeats `unit` bytes.
std::string unpackedRow(PictReader& in, const MapHeader& header, std::size_t size, std::size_t unit) {
    std::string row;
    if (!header.packed) {
        row = in.take(plainRowBytes(header));
    } else {
        const int count = header.rowBytes > 250 ? in.word() : in.byte();
        PictReader packed(in.take(static_cast<std::size_t>(count)));
        // A row that is too short is padded; the rows after it may be whole.
        while (row.size() < size && !packed.ended()) {
            const auto run = static_cast<std::int8_t>(packed.byte());
            if (run >= 0) {
                row += packed.take((static_cast<std::size_t>(run) + 1) * unit);
            } else if (run != -128) {
                const std::string_view repeated = packed.take(unit);
                for (int i = 0; i < 1 - run; ++i)
                    row += repeated;
            }
        }
    }
    row.resize(size);
    return row;
}

/// The number of bytes of an unpacked row that hold pixels.
std::size_t bytesUsed(const MapHeader& header, int width) {
    const auto pixels = static_cast<std::size_t>(width);
    if (header.bits == 32)
        return pixels * static_cast<std::size_t>(header.packType == 4   ? header.components
                                                 : header.packType == 2 ? 3
                                                                        : 4);
    return (pixels * static_cast<std::size_t>(header.bits) + 7) / 8;
}

/// Converts a row of pixels of more than one bit to color words.
void convertRow(const MapHeader& header, const std::string& row, std::size_t width, l_uint32* to) {
    auto at = [&](std::size_t i) { return static_cast<std::uint32_t>(static_cast<unsigned char>(row[i])); };
    for (std::size_t x = 0; x < width; ++x) {
        std::uint32_t rgb = 0;
        if (header.bits <= 8) {
            const auto inByte = static_cast<std::size_t>(8 / header.bits);
            const auto shift =
                static_cast<std::size_t>(8 - header.bits) - x % inByte * static_cast<std::size_t>(header.bits);
            rgb = header.table[at(x / inByte) >> shift & ((1u << header.bits) - 1)];
        } else if (header.bits == 16) {
            const std::uint32_t word = at(2 * x) << 8 | at(2 * x + 1);
            auto wide = [](std::uint32_t five) { return five << 3 | five >> 2; };
            rgb = wide(word >> 10 & 31) << 24 | wide(word >> 5 & 31) << 16 | wide(word & 31) << 8;
        } else if (header.packType == 4) {
            const std::size_t red = header.components == 4 ? width : 0; // alpha comes first
            rgb = at(red + x) << 24 | at(red + width + x) << 16 | at(red + 2 * width + x) << 8;
        } else {
            const std::size_t red = header.packType == 2 ? 3 * x : 4 * x + 1;
            rgb = at(red) << 24 | at(red + 1) << 16 | at(red + 2) << 8;
        }
        to[x] = rgb | 0xff;
    }
}

Picture readPixels(PictReader& in, const MapHeader& header, const PictRectangle& bounds) {
    const std::size_t used = bytesUsed(header, bounds.width());
    const std::size_t unit = header.bits == 16 ? 2 : 1;
    if (!isPictureSize(bounds.width(), bounds.height()) || (!header.packed && used > plainRowBytes(header)))
        return {};
    PixPtr map = newPix(bounds.width(), bounds.height(), header.bits == 1 && header.components == 0 ? 1 : 32);
    for (int y = 0; map && y < bounds.height() && !in.ended(); ++y) {
        l_uint32* to = pixGetData(map.get()) + std::ptrdiff_t{y} * pixGetWpl(map.get());
        const std::string row = unpackedRow(in, header, used, unit);
        if (pixGetDepth(map.get()) == 1)
            row.copy(reinterpret_cast<char*>(to), used);
        else
            convertRow(header, row, static_cast<std::size_t>(bounds.width()), to);
    }
    if (map && pixGetDepth(map.get()) == 1)
        pixEndianByteSwap(map.get());
    else
        map = inSmallestDepth(std::move(map));
    return Picture::adopt(map.release());
}

bool isKnown(const MapHeader& header, bool direct) {
    if (!direct)
        return header.bits == 1 || header.bits == 2 || header.bits == 4 || header.bits == 8;
    if (header.bits == 16)
        return header.packType <= 1 || header.packType == 3;
    return header.bits == 32 && header.packType <= 4 && header.packType != 3 &&
           (header.components == 3 || header.components == 4);
}

} // namespace

bool isPictMap(int opcode) {
    return opcode == 0x90 || opcode == 0x91 || (opcode >= 0x98 && opcode <= 0x9b);
}

PictMap readPictMap(PictReader& in, int opcode) {
    PictMap map;
    MapHeader header;
    const bool direct = opcode >= kFirstDirectOpcode;
    if (direct)
        in.skip(4);
    const int rowBytes = in.word();
    const bool deep = (rowBytes & 0x8000) != 0;
    header.rowBytes = rowBytes & 0x7fff;
    map.bounds = PictRectangle(in);
    if (deep || direct) {
        in.skip(2);
        header.packType = in.word();
        in.skip(4 + 4 + 4 + 2); // packed size, resolutions, pixel type
        header.bits = in.word();
        header.components = in.word();
        in.skip(2 + 4 + 4 + 4);
        if (!direct)
            readTable(in, header);
    } else {
        header.components = 0; // a bit map
    }
    map.source = PictRectangle(in);
    map.target = PictRectangle(in);
    in.skip(2); // transfer mode
    if (opcode % 2 != 0)
        in.skipRegion();
    if (direct && header.packType == 0)
        header.packType = header.bits == 16 ? 3 : 4;
    header.packed = header.rowBytes >= 8 && opcode >= kFirstPackedOpcode && (!direct || header.packType >= 3);
    if (direct && !header.packed && header.packType >= 3)
        header.packType = 1; // too narrow to be packed
    if (isKnown(header, direct))
        map.picture = readPixels(in, header, map.bounds);
    return map;
}

} // namespace velmarin
