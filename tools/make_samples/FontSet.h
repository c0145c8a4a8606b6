#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "make_samples/Article.h"

namespace velmarin {

/// The font files of a book. Each style has a chain of files: a character comes from the first that has it.
struct Typeface {
    std::vector<std::string> roman;
    std::vector<std::string> italic;
    std::vector<std::string> bold;
    /// The bold chain holds regular fonts, which are to be thickened.
    bool thickenBold = false;
    /// The roman fonts have small capitals of their own; without, they are made of smaller capitals.
    bool ownSmallCaps = false;
};

/// A font at a size, the same for every FontSet made of the same Typeface.
struct FontKey {
    std::uint8_t face = 0;
    bool thick = false;
    std::uint16_t size = 0; ///< in 1/64 pixel

    friend bool operator==(const FontKey&, const FontKey&) = default;
};

/// A glyph in a shaped run: pixels, x to the right, y upward from the baseline.
struct ShapedGlyph {
    FontKey font;
    std::uint32_t id = 0;
    std::uint32_t cluster = 0; ///< byte offset of its character in the text that was shaped
    float advance = 0;
    float dx = 0;
    float dy = 0;
};

struct ShapedText {
    std::vector<ShapedGlyph> glyphs;
    float width = 0;
};

/// How much of each pixel a glyph covers, 0 to 255, row by row.
struct GlyphBitmap {
    int left = 0;
    int top = 0; ///< rows above the baseline
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> coverage;
};

/// Shapes text and rasterises glyphs, and keeps what it has done. Not to be shared between threads.
class FontSet {
  public:
    static constexpr int subpixels = 4;

    /// Throws std::runtime_error naming a font file that cannot be opened.
    explicit FontSet(const Typeface& typeface);
    ~FontSet();
    FontSet(const FontSet&) = delete;
    FontSet& operator=(const FontSet&) = delete;

    /// `pixels` is the size of the em. The result lives as long as the FontSet. Characters that no font has are left
    /// out.
    const ShapedText& shape(Style style, double pixels, std::string_view text);

    /// `subpixel` of 0 to subpixels - 1: the glyph moved right by that part of a pixel.
    const GlyphBitmap& bitmap(const FontKey& font, std::uint32_t glyph, int subpixel);

  private:
    struct Library;
    struct Face;
    struct Run;

    std::vector<std::size_t> facesOf(const std::vector<std::string>& files);
    void shapeRun(ShapedText& shaped, const Run& run, std::string_view text, std::size_t offset);
    void shapeCovered(ShapedText& shaped, const std::vector<std::size_t>& chain, const Run& run, std::string_view text,
                      std::size_t offset);
    void shapeSmallCaps(ShapedText& shaped, double pixels, std::string_view text);

    std::unique_ptr<Library> library_;
    std::vector<std::unique_ptr<Face>> faces_;
    std::vector<std::size_t> roman_, italic_, bold_;
    bool thickenBold_;
    bool ownSmallCaps_;
    std::unordered_map<std::string, ShapedText> shaped_;
    std::unordered_map<std::uint64_t, GlyphBitmap> bitmaps_;
};

} // namespace velmarin
