#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmarin {

enum class Setting : std::uint8_t {
    Hanging,  ///< justified, the first line at the margin: the opening of an article
    Indented, ///< justified, the first line indented: a further paragraph of the article
    Verse,    ///< one line of a poem, not justified
    Right,    ///< a signature at the right margin
};

struct Paragraph {
    Setting setting = Setting::Hanging;
    bool small = false;
    bool gapBefore = false; ///< opens a stanza
    std::string markup;     ///< Pango markup
};

enum class PageKind : std::uint8_t {
    BilevelTiff, ///< 1 bit per pixel, Group 4
    ColorPng,    ///< black and red ink
    ColorJpeg,   ///< the same on toned paper
};

/// How the pages of a book look. Lengths in pixels.
struct Design {
    std::string typeface{};    ///< font families, in the order in which they are searched for a character
    std::string hyphenation{}; ///< the path of a file of hyphenation patterns, or empty
    PageKind kind = PageKind::BilevelTiff;
    int dpi = 300;
    int pageWidth = 2100;
    int pageHeight = 2970;
    int sideMargin = 150;
    int headBaseline = 210; ///< of guide words and page number
    int textTop = 265;
    int textBottom = 2830;
    int columns = 2;
    int gutter = 64; ///< between columns
    double body = 33;
    double bodyLeading = 37;
    double small = 29;
    double smallLeading = 32;
    double head = 38;
    double initial = 96; ///< the letter that opens its part of the alphabet
    bool letterHeads = true;
    double boldSpacing = 0; ///< between bold letters, in ems: for a typeface without a bold face

    int textWidth() const { return pageWidth - 2 * sideMargin; }
    int columnWidth() const { return (textWidth() - (columns - 1) * gutter) / columns; }
};

/// What the title page says.
struct Title {
    std::string name;
    std::vector<std::string> subtitle;
    std::vector<std::string> imprint; ///< where the text comes from, at the foot
};

} // namespace velmarin
