#include "scan/RawPnm.h"

#include "view/PixTools.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <optional>

namespace velmarin {

namespace {

/// The number after blanks and comments. It is cut off.
std::optional<int> takeNumber(std::string_view& bytes) {
    constexpr std::string_view kBlanks = " \t\r\n";
    while (!bytes.empty() && (kBlanks.find(bytes.front()) != std::string_view::npos || bytes.front() == '#'))
        bytes.remove_prefix(std::min(bytes.front() == '#' ? bytes.find('\n') : 1, bytes.size()));
    int number = 0;
    const auto [end, error] = std::from_chars(bytes.data(), bytes.data() + bytes.size(), number);
    if (error != std::errc())
        return std::nullopt;
    bytes.remove_prefix(static_cast<std::size_t>(end - bytes.data()));
    return number;
}

l_uint32 byte(char c) {
    return static_cast<unsigned char>(c);
}

PixPtr readRows(std::string_view bytes, char kind, int width, int height) {
    const int depth = kind == '4' ? 1 : kind == '5' ? 8 : 32;
    const std::size_t rowSize =
        depth == 1 ? (static_cast<std::size_t>(width) + 7) / 8 : static_cast<std::size_t>(width) * (depth == 8 ? 1 : 3);
    if (rowSize == 0 || bytes.size() / rowSize < static_cast<std::size_t>(height))
        return nullptr;
    PixPtr pix = newPix(width, height, depth);
    if (!pix)
        return nullptr;
    for (int y = 0; y < height; ++y) {
        l_uint32* row = pixGetData(pix.get()) + std::ptrdiff_t{y} * pixGetWpl(pix.get());
        const char* from = bytes.data() + static_cast<std::size_t>(y) * rowSize;
        if (depth < 32) {
            std::memcpy(row, from, rowSize);
            continue;
        }
        for (int x = 0; x < width; ++x, from += 3)
            row[x] = byte(from[0]) << 24 | byte(from[1]) << 16 | byte(from[2]) << 8 | 0xff;
    }
    if (depth == 32)
        return inSmallestDepth(std::move(pix));
    pixEndianByteSwap(pix.get());
    pixSetPadBits(pix.get(), 0);
    return pix;
}

} // namespace

Picture readRawPnm(std::string_view bytes) {
    if (bytes.size() < 2 || bytes[0] != 'P' || bytes[1] < '4' || bytes[1] > '6')
        return {};
    const char kind = bytes[1];
    bytes.remove_prefix(2);
    const std::optional<int> width = takeNumber(bytes), height = takeNumber(bytes);
    const std::optional<int> most = kind == '4' ? 255 : takeNumber(bytes);
    if (!width || !height || most != 255 || bytes.empty() || !isPictureSize(*width, *height))
        return {};
    bytes.remove_prefix(1); // one blank ends the header
    return Picture::adopt(readRows(bytes, kind, *width, *height).release());
}

} // namespace velmarin
