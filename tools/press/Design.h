#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmarin {

// Families that books are set in, from the font packages in tools/packages.txt. The later ones of each supply letters
// and ornaments that the first lacks; the last has kana and Chinese characters.
inline constexpr const char* kModernFace = "Old Standard TT, Linux Libertine O, EB Garamond 12, IPAexMincho";
inline constexpr const char* kOldFace = "EB Garamond 12, Linux Libertine O, IPAexMincho";
inline constexpr const char* kPlainFace = "Linux Libertine O, EB Garamond 12, IPAexMincho";

// Files of hyphenation patterns.
inline constexpr const char* kEnglishPatterns = "/usr/share/hyphen/hyph_en_US.dic";
inline constexpr const char* kGermanPatterns = "/usr/share/hyphen/hyph_de_DE.dic";
inline constexpr const char* kFrenchPatterns = "/usr/share/hyphen/hyph_fr.dic";

enum class Setting : std::uint8_t {
    Hanging,  ///< justified, the first line at the margin: the opening of an article
    Indented, ///< justified, the first line indented: a further paragraph of the article
    Verse,    ///< one line of a poem, not justified
    Right,    ///< a signature at the right margin
};

struct Paragraph {
    Setting setting = Setting::Hanging;
    bool small = false;
    bool gapBefore = false;  ///< opens a stanza
    std::string markup = {}; ///< Pango markup
};

enum class PageKind : std::uint8_t {
    BilevelTiff, ///< 1 bit per pixel, Group 4
    ColorPng,    ///< black and red ink
    ColorJpeg,   ///< the same on toned paper
};

struct TypeSize {
    double em = 0;
    double leading = 0; ///< from one baseline to the next
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
    TypeSize body{33, 37};
    TypeSize small{29, 32};
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
