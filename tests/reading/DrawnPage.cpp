#include "DrawnPage.h"

#include "view/PixTools.h"

#include <array>
#include <numbers>

namespace velmarin {

namespace {

constexpr int kWidth = 1000, kHeight = 1350;
constexpr std::array kWords{"abacus", "bench", "canon", "dormant", "elegy", "fathom", "gentle", "harbor"};

struct Font {
    L_Bmf* bmf;
    explicit Font(int size) : bmf(bmfCreate(nullptr, size)) {}
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;
    ~Font() { bmfDestroy(&bmf); }

    int widthOf(const std::string& text) const {
        int width = 0;
        bmfGetStringWidth(bmf, text.c_str(), &width);
        return width;
    }
};

void write(Pix* pix, const Font& font, const std::string& text, int x, int baseLine) {
    pixSetTextline(pix, font.bmf, text.c_str(), 1, x, baseLine, nullptr, nullptr);
}

void drawColumns(Pix* pix, int columns) {
    const Font font(6);
    const int width = kDrawnHead.width / columns, gutter = 24;
    for (int column = 0; column < columns; ++column) {
        std::size_t word = static_cast<std::size_t>(column);
        for (int line = 0; line < kDrawnLines; ++line) {
            const int left = kDrawnHead.x + column * width + (line % 3 == 0 ? 0 : 16);
            const int right = kDrawnHead.x + (column + 1) * width - gutter;
            int x = left;
            for (; x + 60 < right; x += font.widthOf(kWords[word % kWords.size()]) + 8)
                write(pix, font, kWords[++word % kWords.size()], x, 134 + line * 23);
        }
    }
}

Pix* onDarkPaper(Pix* ink) {
    Pix* grey = pixConvert1To8(nullptr, ink, 215, 40);
    for (int y = 0; y < pixGetHeight(grey); ++y) {
        for (int x = 0; x < pixGetWidth(grey); ++x) {
            l_uint32 value = 0;
            pixGetPixel(grey, x, y, &value);
            pixSetPixel(grey, x, y, value - value * static_cast<l_uint32>(x) / 2500);
        }
    }
    return grey;
}

} // namespace

Picture draw(const DrawnPage& page) {
    PixPtr pix = newPix(kWidth, kHeight, 1);
    const Font font(10);
    const int step = page.head.size() < 2 ? 0 : kDrawnHead.width / static_cast<int>(page.head.size() - 1);
    for (std::size_t i = 0; i < page.head.size(); ++i) {
        const int center = kDrawnHead.x + static_cast<int>(i) * step, width = font.widthOf(page.head[i]);
        const int x = i == 0 ? center : i + 1 == page.head.size() ? center - width : center - width / 2;
        write(pix.get(), font, page.head[i], x, 84);
    }
    if (page.ruled)
        pixRasterop(pix.get(), kDrawnHead.x, 98, kDrawnHead.width, 3, PIX_SET, nullptr, 0, 0);
    drawColumns(pix.get(), page.columns);
    write(pix.get(), font, page.foot, kWidth / 2, 1290);
    if (page.skew != 0) {
        pix.reset(pixRotate(pix.get(), static_cast<l_float32>(page.skew * std::numbers::pi / 180), L_ROTATE_SAMPLING,
                            L_BRING_IN_WHITE, 0, 0));
    }
    if (page.border > 0)
        pixSetOrClearBorder(pix.get(), page.border, page.border, page.border, page.border, PIX_SET);
    return Picture::adopt(page.grey ? onDarkPaper(pix.get()) : pix.release());
}

} // namespace velmarin
