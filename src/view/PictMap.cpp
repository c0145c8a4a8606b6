#include "view/PictMap.h"

#include "view/PixTools.h"

#include <array>
#include <string>
#include <vector>

namespace velmarin {
namespace {

constexpr int packedOpcodes = 0x98;
constexpr int directOpcodes = 0x9a;

/// The header of a map.
struct Format {
    int rowBytes = 0;
    int bits = 1;
    int packType = 0;
    int components = 1;
    bool packed = false;
    std::array<std::uint32_t, 256> table{}; ///< 0xRRGGBB00
};

void readTable(PictReader& in, Format& format) {
    in.skip(4);
    const bool inOrder = (in.word() & 0x8000) != 0;
    const int last = in.word();
    for (int i = 0; i <= last; ++i) {
        const int value = in.word();
        const int red = in.word(), green = in.word(), blue = in.word();
        const auto index = static_cast<std::size_t>((inOrder ? i : value) & 0xff);
        format.table[index] = static_cast<std::uint32_t>(red >> 8) << 24 |
                              static_cast<std::uint32_t>(green >> 8) << 16 | static_cast<std::uint32_t>(blue >> 8) << 8;
    }
}

/// One row, unpacked and padded with 0. Runs repeat `unit` bytes.
std::string unpacked(PictReader& in, const Format& format, std::size_t size, std::size_t unit) {
    std::string row;
    if (!format.packed) {
        row = in.take(static_cast<std::size_t>(format.rowBytes));
    } else {
        const int count = format.rowBytes > 250 ? in.word() : in.byte();
        PictReader packed(in.take(static_cast<std::size_t>(count)));
        try {
            while (row.size() < size) {
                const auto run = static_cast<std::int8_t>(packed.byte());
                if (run >= 0) {
                    row += packed.take((static_cast<std::size_t>(run) + 1) * unit);
                } else if (run != -128) {
                    const std::string_view repeated = packed.take(unit);
                    for (int i = 0; i < 1 - run; ++i)
                        row += repeated;
                }
            }
        } catch (const PictReader::EndOfFile&) {
            // The row is too short; the following ones may be whole.
        }
    }
    row.resize(size);
    return row;
}

/// The number of bytes of an unpacked row that hold pixels.
std::size_t bytesUsed(const Format& format, int width) {
    const auto pixels = static_cast<std::size_t>(width);
    if (format.bits == 32)
        return pixels * static_cast<std::size_t>(format.packType == 4   ? format.components
                                                 : format.packType == 2 ? 3
                                                                        : 4);
    return (pixels * static_cast<std::size_t>(format.bits) + 7) / 8;
}

/// A row of pixels of more than one bit, as words.
void spread(const Format& format, const std::string& row, std::size_t width, l_uint32* to) {
    auto at = [&](std::size_t i) { return static_cast<std::uint32_t>(static_cast<unsigned char>(row[i])); };
    for (std::size_t x = 0; x < width; ++x) {
        std::uint32_t rgb = 0;
        if (format.bits <= 8) {
            const auto inByte = static_cast<std::size_t>(8 / format.bits);
            const auto shift =
                static_cast<std::size_t>(8 - format.bits) - x % inByte * static_cast<std::size_t>(format.bits);
            rgb = format.table[at(x / inByte) >> shift & ((1u << format.bits) - 1)];
        } else if (format.bits == 16) {
            const std::uint32_t word = at(2 * x) << 8 | at(2 * x + 1);
            auto wide = [](std::uint32_t five) { return five << 3 | five >> 2; };
            rgb = wide(word >> 10 & 31) << 24 | wide(word >> 5 & 31) << 16 | wide(word & 31) << 8;
        } else if (format.packType == 4) {
            const std::size_t red = format.components == 4 ? width : 0; // a plane of its own before it
            rgb = at(red + x) << 24 | at(red + width + x) << 16 | at(red + 2 * width + x) << 8;
        } else {
            const std::size_t red = format.packType == 2 ? 3 * x : 4 * x + 1;
            rgb = at(red) << 24 | at(red + 1) << 16 | at(red + 2) << 8;
        }
        to[x] = rgb | 0xff;
    }
}

Picture readPixels(PictReader& in, const Format& format, const PictRectangle& bounds) {
    const std::size_t used = bytesUsed(format, bounds.width());
    const std::size_t unit = format.bits == 16 ? 2 : 1;
    if (!isPictureSize(bounds.width(), bounds.height()) ||
        (!format.packed && format.packType != 2 && used > static_cast<std::size_t>(format.rowBytes)))
        return {};
    PixPtr map = newPix(bounds.width(), bounds.height(), format.bits == 1 && format.components == 0 ? 1 : 32);
    for (int y = 0; map && y < bounds.height(); ++y) {
        l_uint32* to = pixGetData(map.get()) + std::ptrdiff_t{y} * pixGetWpl(map.get());
        const std::string row = unpacked(in, format, used, unit);
        if (pixGetDepth(map.get()) == 1)
            row.copy(reinterpret_cast<char*>(to), used);
        else
            spread(format, row, static_cast<std::size_t>(bounds.width()), to);
    }
    if (map && pixGetDepth(map.get()) == 1)
        pixEndianByteSwap(map.get());
    else
        map = leanest(std::move(map));
    return Picture::adopt(map.release());
}

bool isKnown(const Format& format, bool direct) {
    if (!direct)
        return format.bits == 1 || format.bits == 2 || format.bits == 4 || format.bits == 8;
    if (format.bits == 16)
        return format.packType <= 1 || format.packType == 3;
    return format.bits == 32 && format.packType <= 4 && format.packType != 3 &&
           (format.components == 3 || format.components == 4);
}

} // namespace

bool isPictMap(int opcode) {
    return opcode == 0x90 || opcode == 0x91 || (opcode >= 0x98 && opcode <= 0x9b);
}

PictMap readPictMap(PictReader& in, int opcode) {
    PictMap map;
    Format format;
    const bool direct = opcode >= directOpcodes;
    if (direct)
        in.skip(4);
    const int rowBytes = in.word();
    const bool deep = (rowBytes & 0x8000) != 0;
    format.rowBytes = rowBytes & 0x7fff;
    map.bounds = PictRectangle(in);
    if (deep || direct) {
        in.skip(2);
        format.packType = in.word();
        in.skip(4 + 4 + 4 + 2); // size when packed, resolutions, kind of pixels
        format.bits = in.word();
        format.components = in.word();
        in.skip(2 + 4 + 4 + 4);
        if (!direct)
            readTable(in, format);
    } else {
        format.components = 0; // a bit map
    }
    map.source = PictRectangle(in);
    map.target = PictRectangle(in);
    in.skip(2); // transfer mode
    if (opcode % 2 != 0)
        in.skipRegion();
    if (direct && format.packType == 0)
        format.packType = format.bits == 16 ? 3 : 4;
    format.packed = format.rowBytes >= 8 && opcode >= packedOpcodes && (!direct || format.packType >= 3);
    if (direct && !format.packed && format.packType >= 3)
        format.packType = 1; // too narrow to be packed
    if (isKnown(format, direct))
        map.picture = readPixels(in, format, map.bounds);
    return map;
}

} // namespace velmarin
