#include "make_samples/Sheet.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <stdexcept>

#include <leptonica/allheaders.h>

namespace velmarin {

namespace {

/// Ink from which a pixel of a 1-bit page is black: below half, since ink spreads on paper.
constexpr std::uint64_t blackFrom = 100;

constexpr int jpegQuality = 78;

/// Darkens the paper towards the two edges that lie `width` or `height` apart.
void shade(cairo_t* context, double width, double height) {
    cairo_pattern_t* gradient = cairo_pattern_create_linear(0, 0, width, height);
    for (int step = 0; step <= 40; ++step)
        cairo_pattern_add_color_stop_rgba(gradient, step / 40.0, 0.45, 0.3, 0,
                                          0.1 * std::pow(std::abs(step / 20.0 - 1), 6));
    cairo_set_source(context, gradient);
    cairo_paint(context);
    cairo_pattern_destroy(gradient);
}

/// Up to 32 pixels as bits, the first the most significant. Eight are compared and gathered at once.
l_uint32 packed(const unsigned char* ink, int count) {
    constexpr std::uint64_t eachByte = 0x0101010101010101;
    std::array<std::uint64_t, 4> pixels{};
    std::memcpy(pixels.data(), ink, static_cast<std::size_t>(count));
    l_uint32 bits = 0;
    for (const std::uint64_t eight : pixels) {
        const std::uint64_t sums = (eight & eachByte * 0x7F) + eachByte * (128 - blackFrom);
        const std::uint64_t isBlack = (sums | eight) >> 7 & eachByte;
        bits = bits << 8 | static_cast<l_uint32>(isBlack * 0x8040201008040201 >> 56);
    }
    return bits;
}

} // namespace

std::string extensionOf(PageKind kind) {
    return kind == PageKind::BilevelTiff ? ".tif" : kind == PageKind::ColourPng ? ".png" : ".jpg";
}

Sheet::Sheet(const Design& design)
    : kind_(design.kind), dpi_(design.dpi),
      surface_(cairo_image_surface_create(kind_ == PageKind::BilevelTiff ? CAIRO_FORMAT_A8 : CAIRO_FORMAT_RGB24,
                                          design.pageWidth, design.pageHeight),
               &cairo_surface_destroy),
      context_(cairo_create(surface_.get()), &cairo_destroy) {
    if (cairo_status(context()) != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error("not enough memory for a page");
    if (kind_ != PageKind::BilevelTiff) {
        const bool toned = kind_ == PageKind::ColourJpeg;
        cairo_set_source_rgb(context(), toned ? 0.965 : 1, toned ? 0.933 : 1, toned ? 0.855 : 1);
        cairo_paint(context());
        if (toned) {
            shade(context(), design.pageWidth, 0);
            shade(context(), 0, design.pageHeight);
        }
    }
    cairo_surface_flush(surface_.get());
    if (kind_ == PageKind::BilevelTiff)
        cairo_set_operator(context(), CAIRO_OPERATOR_ADD); // much faster than OVER, and the same in one colour
    const unsigned char* first = cairo_image_surface_get_data(surface_.get());
    blank_.assign(first, first + std::ptrdiff_t{cairo_image_surface_get_stride(surface_.get())} * design.pageHeight);
    useRed(false);
}

void Sheet::useRed(bool red) const {
    cairo_set_source_rgb(context(), red ? 0.675 : 0.094, red ? 0.141 : 0.078, red ? 0.11 : 0.07);
}

void Sheet::clear() const {
    cairo_surface_flush(surface_.get());
    std::ranges::copy(blank_, cairo_image_surface_get_data(surface_.get()));
    cairo_surface_mark_dirty(surface_.get());
}

void Sheet::write(const std::filesystem::path& path) const {
    cairo_surface_flush(surface_.get());
    const int width = cairo_image_surface_get_width(surface_.get());
    const int height = cairo_image_surface_get_height(surface_.get());
    const bool bilevel = kind_ == PageKind::BilevelTiff;
    const auto destroy = [](Pix* pix) { pixDestroy(&pix); };
    const std::unique_ptr<Pix, decltype(destroy)> pix(pixCreate(width, height, bilevel ? 1 : 32), destroy);
    if (!pix)
        throw std::runtime_error("not enough memory for a page");
    l_uint32* word = pixGetData(pix.get());
    const int words = pixGetWpl(pix.get());
    const unsigned char* row = cairo_image_surface_get_data(surface_.get());
    for (int y = 0; y < height; ++y, row += cairo_image_surface_get_stride(surface_.get()))
        for (int x = 0; x < words; ++x)
            // cairo keeps a colour in the low 24 bits of a word, Leptonica in the high ones.
            *word++ = bilevel ? packed(row + std::ptrdiff_t{x} * 32, std::min(32, width - x * 32))
                              : reinterpret_cast<const l_uint32*>(row)[x] << 8;
    pixSetResolution(pix.get(), dpi_, dpi_);
    const bool failed = kind_ == PageKind::ColourJpeg
                            ? pixWriteJpeg(path.c_str(), pix.get(), jpegQuality, 0) != 0
                            : pixWrite(path.c_str(), pix.get(), bilevel ? IFF_TIFF_G4 : IFF_PNG) != 0;
    if (failed)
        throw std::runtime_error("cannot write " + path.string());
}

} // namespace velmarin
