#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "text/SearchWord.h"

namespace velmarin {

enum class Setting : std::uint8_t {
    Hanging,  ///< Justified, the first line out to the margin: the opening of an article
    Indented, ///< Justified, the first line in: a further paragraph of the article
    Verse,    ///< One line of a poem, not justified
    Right,    ///< A signature at the right margin
};

struct Paragraph {
    Setting setting = Setting::Hanging;
    bool small = false;
    bool gapBefore = false; ///< a part of a line of space above it
    std::string markup;     ///< Pango's
};

/// One article of a dictionary, ready to be set.
struct Article {
    std::string key;   ///< what the index holds: the headword as readers type it
    std::string guide; ///< what the head of the page shows
    std::string note;  ///< goes into the index after the delimiter; may be empty
    std::vector<Paragraph> paragraphs;
    /// The article in full where `paragraphs` holds a shorter form; set on pages of its own. Mostly empty.
    std::vector<Paragraph> supplement;
};

enum class PageKind : std::uint8_t {
    BilevelTiff, ///< 1 bit a pixel, Group 4
    ColourPng,   ///< red ink beside the black
    ColourJpeg,  ///< the same on toned paper
};

/// How the pages of a book look. Lengths in pixels.
struct Design {
    std::string typeface;    ///< font families; a character comes from the first that has it
    std::string hyphenation; ///< a hyphenation dictionary's path, or empty
    PageKind kind = PageKind::BilevelTiff;
    int dpi = 300;
    int pageWidth = 2100;
    int pageHeight = 2970;
    int sideMargin = 150;
    int headBaseline = 210; ///< of guide words and page number
    int textTop = 265;
    int textBottom = 2830;
    int gutter = 64;
    double body = 33;
    double bodyLeading = 37;
    double small = 29;
    double smallLeading = 32;
    double head = 38;
    double initial = 96; ///< the letter that opens its part of the alphabet
    bool letterHeads = true;
    double boldSpacing = 0; ///< between bold letters, in ems: for a typeface that has to be thickened

    int textWidth() const { return pageWidth - 2 * sideMargin; }
    int columnWidth() const { return (textWidth() - gutter) / 2; }
};

/// What the title page says.
struct Title {
    std::string name;
    std::vector<std::string> subtitle;
    std::vector<std::string> imprint; ///< where the text comes from, at the foot
};

/// All that is needed to make one dictionary.
struct Book {
    Title title;
    Design design;
    IndexOrder order;
    bool independent = false;
    std::vector<Article> articles;
    /// Keys beside those of the articles, each with the number of an article: an element's name beside its number.
    std::vector<std::pair<std::string, std::size_t>> furtherKeys;
};

/// Makes the dictionary in `folder`, which does not exist yet, with at most `atOnce` processes for the pages.
void makeBook(Book book, const std::filesystem::path& folder, std::size_t atOnce);

} // namespace velmarin
