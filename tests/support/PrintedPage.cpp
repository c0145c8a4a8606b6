#include "PrintedPage.h"

#include <allheaders.h>

#include <cstdlib>

namespace velmarin::test {

std::string printedPage(const std::string& first, const std::string& number, const std::string& last, float scale) {
    constexpr int kWidth = 1200, kHeight = 1000, kLineHeight = 46, kColumn = 520, kHead = 120, kPoints = 14;
    PIX* page = pixCreate(kWidth, kHeight, 8);
    pixSetAll(page);
    static L_BMF* const font = bmfCreate(nullptr, kPoints);
    const auto print = [&](const std::string& text, int x, int y) {
        l_int32 width = 0, overflow = 0;
        pixSetTextline(page, font, text.c_str(), 0, x, y, &width, &overflow);
    };
    print(first, 100, kHead);
    print(number, 580, kHead);
    print(last, 900, kHead);
    pixRenderLineArb(page, 100, kHead + 30, 1100, kHead + 30, 3, 0, 0, 0);
    for (int column = 100; column < kWidth - kColumn; column += kColumn)
        for (int y = kHead + 110; y < kHeight - 80; y += kLineHeight)
            print("and so on and so on", column, y);
    l_uint8* bytes = nullptr;
    std::size_t size = 0;
    PIX* scaled = pixScale(page, scale, scale);
    PIX* scan = pixThresholdToBinary(scaled, 160);
    pixWriteMem(&bytes, &size, scan, IFF_PNG);
    for (PIX* each : {page, scaled, scan})
        pixDestroy(&each);
    std::string png(reinterpret_cast<const char*>(bytes), size);
    std::free(bytes);
    return png;
}

} // namespace velmarin::test
