#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

#include "make_samples/FontSet.h"
#include "make_samples/LineBreaker.h"

namespace velmarin {

enum class PageKind : std::uint8_t {
    BilevelTiff, ///< 1 bit a pixel, Group 4
    GreyPng,
    ColourPng,  ///< red ink beside the black
    ColourJpeg, ///< on toned paper
};

std::string_view extensionOf(PageKind kind);

/// One page while it is printed: how much black and how much red ink lies on each pixel.
class Canvas {
  public:
    Canvas(int width, int height, bool withRed);

    int width() const { return width_; }
    int height() const { return height_; }

    /// A rectangle of full ink, clipped to the page.
    void fill(int x, int y, int width, int height, bool red = false);
    /// The outline of a rectangle, `thickness` wide, inside its bounds.
    void frame(int x, int y, int width, int height, int thickness, bool red = false);
    /// Glyphs with the left end of their baseline at (x, y).
    void print(FontSet& fonts, const std::vector<PlacedGlyph>& glyphs, double x, double y);

    /// Writes the page with a resolution of `dpi`. Throws std::runtime_error naming the file where that fails.
    void write(const std::filesystem::path& path, PageKind kind, int dpi) const;

  private:
    std::vector<std::uint8_t>& plane(bool red) { return red && !red_.empty() ? red_ : black_; }

    int width_;
    int height_;
    std::vector<std::uint8_t> black_;
    std::vector<std::uint8_t> red_;
};

} // namespace velmarin
