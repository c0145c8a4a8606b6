#pragma once

#include <cstdint>
#include <vector>

#include "make_samples/Article.h"
#include "make_samples/FontSet.h"
#include "make_samples/Hyphenator.h"

namespace velmarin {

/// A glyph at its place in a line: pixels, x from the line's left margin, y upward from its baseline.
struct PlacedGlyph {
    FontKey font;
    bool red = false;
    std::uint32_t id = 0;
    float x = 0;
    float y = 0;
};

struct Line {
    std::vector<PlacedGlyph> glyphs;
    float leading = 0; ///< from the baseline before it to its own
};

/// Sizes in pixels.
struct TextMeasure {
    double width = 900;
    double body = 33;
    double bodyLeading = 37;
    double small = 29;
    double smallLeading = 33;
};

/// Sets a paragraph into lines.
///
/// Breaks are chosen for the whole paragraph at once: of all ways to break it, the one whose sum of demerits is least,
/// where a line's demerits grow with the cube of how far its blanks are stretched or shrunk, and with each division of
/// a word (after D. E. Knuth and M. F. Plass, "Breaking Paragraphs into Lines", 1981). Chinese characters and kana may
/// be parted anywhere but before closing marks.
class LineBreaker {
  public:
    LineBreaker(FontSet& fonts, Hyphenator& hyphenator, const TextMeasure& measure)
        : fonts_(fonts), hyphenator_(hyphenator), measure_(measure) {}

    std::vector<Line> lines(const Paragraph& paragraph);

  private:
    FontSet& fonts_;
    Hyphenator& hyphenator_;
    TextMeasure measure_;
};

} // namespace velmarin
