#include "Pictures.h"

#include <allheaders.h>

#include <algorithm>
#include <cstdlib>
#include <random>

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

int difference(const Picture& a, const Picture& b) {
    if (a.Width() != b.Width() || a.Height() != b.Height())
        return 256;
    int most = 0;
    for (int y = 0; y < a.Height(); ++y)
        for (int x = 0; x < a.Width(); ++x) {
            const Color c = a.pixel(x, y), d = b.pixel(x, y);
            most = std::max({most, std::abs(c.red - d.red), std::abs(c.green - d.green), std::abs(c.blue - d.blue)});
        }
    return most;
}

} // namespace velmarin::test
