#include "make_samples/Canvas.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <stdexcept>

#include <leptonica/allheaders.h>

namespace velmarin {

namespace {

/// Ink from which a pixel of a 1-bit page is black: below half, since ink spreads on paper.
constexpr int blackFrom = 100;

constexpr int jpegQuality = 78;

struct PixDeleter {
    void operator()(Pix* pix) const { pixDestroy(&pix); }
};
using PixPointer = std::unique_ptr<Pix, PixDeleter>;

struct Rgb {
    int red, green, blue;
};

constexpr Rgb white{255, 255, 255};
constexpr Rgb blackInk{24, 20, 18};
constexpr Rgb redInk{172, 36, 28};
constexpr Rgb tonedPaper{246, 238, 218};

PixPointer newPix(int width, int height, int depth) {
    PixPointer pix(pixCreateNoInit(width, height, depth));
    if (!pix)
        throw std::runtime_error("not enough memory for a page");
    return pix;
}

PixPointer bilevel(const std::vector<std::uint8_t>& ink, int width, int height) {
    PixPointer pix = newPix(width, height, 1);
    const int perLine = pixGetWpl(pix.get());
    l_uint32* word = pixGetData(pix.get());
    for (int y = 0; y < height; ++y) {
        const std::uint8_t* row = ink.data() + static_cast<std::ptrdiff_t>(y) * width;
        for (int i = 0; i < perLine; ++i) {
            const int count = std::min(32, width - i * 32);
            l_uint32 bits = 0;
            for (int b = 0; b < count; ++b)
                bits |= static_cast<l_uint32>(row[i * 32 + b] >= blackFrom) << (31 - b);
            *word++ = bits;
        }
    }
    return pix;
}

PixPointer grey(const std::vector<std::uint8_t>& ink, int width, int height) {
    PixPointer pix = newPix(width, height, 8);
    for (int y = 0; y < height; ++y) {
        l_uint32* line = pixGetData(pix.get()) + static_cast<std::ptrdiff_t>(y) * pixGetWpl(pix.get());
        const std::uint8_t* row = ink.data() + static_cast<std::ptrdiff_t>(y) * width;
        for (int x = 0; x < width; ++x)
            SET_DATA_BYTE(line, x, 255 - row[x]);
    }
    return pix;
}

Rgb inked(Rgb paper, Rgb ink, int amount) {
    const auto mix = [amount](int from, int to) { return from + (to - from) * amount / 255; };
    return {mix(paper.red, ink.red), mix(paper.green, ink.green), mix(paper.blue, ink.blue)};
}

/// Paper that has darkened towards its edges.
class Paper {
  public:
    Paper(int width, int height, bool toned) : toned_(toned) {
        if (!toned)
            return;
        for (int x = 0; x < width; ++x)
            across_.push_back(shade(x, width));
        for (int y = 0; y < height; ++y)
            down_.push_back(shade(y, height));
    }

    Rgb at(int x, int y) const {
        if (!toned_)
            return white;
        const int darker = across_[static_cast<std::size_t>(x)] + down_[static_cast<std::size_t>(y)];
        return {tonedPaper.red - darker, tonedPaper.green - darker * 5 / 4, tonedPaper.blue - darker * 7 / 4};
    }

  private:
    static int shade(int at, int size) {
        return static_cast<int>(std::lround(12 * std::pow(std::abs(2.0 * at / size - 1), 6)));
    }

    bool toned_;
    std::vector<int> across_, down_;
};

PixPointer colour(const std::vector<std::uint8_t>& black, const std::vector<std::uint8_t>& red, int width, int height,
                  bool toned) {
    PixPointer pix = newPix(width, height, 32);
    const Paper paper(width, height, toned);
    for (int y = 0; y < height; ++y) {
        l_uint32* line = pixGetData(pix.get()) + static_cast<std::ptrdiff_t>(y) * pixGetWpl(pix.get());
        for (int x = 0; x < width; ++x) {
            const auto i = static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
            Rgb pixel = paper.at(x, y);
            if (!red.empty() && red[i] != 0)
                pixel = inked(pixel, redInk, red[i]);
            if (black[i] != 0)
                pixel = inked(pixel, blackInk, black[i]);
            composeRGBPixel(pixel.red, pixel.green, pixel.blue, line + x);
        }
    }
    return pix;
}

} // namespace

std::string_view extensionOf(PageKind kind) {
    switch (kind) {
    case PageKind::BilevelTiff:
        return ".tif";
    case PageKind::GreyPng:
    case PageKind::ColourPng:
        return ".png";
    case PageKind::ColourJpeg:
        break;
    }
    return ".jpg";
}

Canvas::Canvas(int width, int height, bool withRed)
    : width_(width), height_(height), black_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {
    if (withRed)
        red_.resize(black_.size());
}

void Canvas::fill(int x, int y, int width, int height, bool red) {
    const int left = std::max(x, 0);
    const int right = std::min(x + width, width_);
    for (int row = std::max(y, 0); row < std::min(y + height, height_) && left < right; ++row)
        std::fill_n(plane(red).begin() + static_cast<std::ptrdiff_t>(row) * width_ + left, right - left, 255);
}

void Canvas::frame(int x, int y, int width, int height, int thickness, bool red) {
    fill(x, y, width, thickness, red);
    fill(x, y + height - thickness, width, thickness, red);
    fill(x, y, thickness, height, red);
    fill(x + width - thickness, y, thickness, height, red);
}

void Canvas::print(FontSet& fonts, const std::vector<PlacedGlyph>& glyphs, double x, double y) {
    for (const PlacedGlyph& glyph : glyphs) {
        const double exact = x + static_cast<double>(glyph.x);
        const double quarters = std::floor(exact * FontSet::subpixels + 0.5);
        const double whole = std::floor(quarters / FontSet::subpixels);
        const int subpixel = static_cast<int>(quarters - whole * FontSet::subpixels);
        const GlyphBitmap& bitmap = fonts.bitmap(glyph.font, glyph.id, subpixel);
        const int left = static_cast<int>(whole) + bitmap.left;
        const int top = static_cast<int>(std::lround(y - static_cast<double>(glyph.y))) - bitmap.top;
        auto& ink = plane(glyph.red);
        const int firstRow = std::max(0, -top);
        const int lastRow = std::min(bitmap.height, height_ - top);
        const int firstColumn = std::max(0, -left);
        const int lastColumn = std::min(bitmap.width, width_ - left);
        for (int row = firstRow; row < lastRow; ++row) {
            const std::uint8_t* from = bitmap.coverage.data() + static_cast<std::ptrdiff_t>(row) * bitmap.width;
            std::uint8_t* to = ink.data() + static_cast<std::ptrdiff_t>(top + row) * width_ + left;
            for (int column = firstColumn; column < lastColumn; ++column)
                to[column] = static_cast<std::uint8_t>(std::min(255, to[column] + from[column]));
        }
    }
}

void Canvas::write(const std::filesystem::path& path, PageKind kind, int dpi) const {
    PixPointer pix;
    bool failed = false;
    switch (kind) {
    case PageKind::BilevelTiff:
        pix = bilevel(black_, width_, height_);
        pixSetResolution(pix.get(), dpi, dpi);
        failed = pixWrite(path.c_str(), pix.get(), IFF_TIFF_G4) != 0;
        break;
    case PageKind::GreyPng:
        pix = grey(black_, width_, height_);
        pixSetResolution(pix.get(), dpi, dpi);
        failed = pixWrite(path.c_str(), pix.get(), IFF_PNG) != 0;
        break;
    case PageKind::ColourPng:
        pix = colour(black_, red_, width_, height_, false);
        pixSetResolution(pix.get(), dpi, dpi);
        failed = pixWrite(path.c_str(), pix.get(), IFF_PNG) != 0;
        break;
    case PageKind::ColourJpeg:
        pix = colour(black_, red_, width_, height_, true);
        pixSetResolution(pix.get(), dpi, dpi);
        failed = pixWriteJpeg(path.c_str(), pix.get(), jpegQuality, 0) != 0;
        break;
    }
    if (failed)
        throw std::runtime_error("cannot write " + path.string());
}

} // namespace velmarin
