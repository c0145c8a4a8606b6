#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmarin {

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

    int textWidth() const { return pageWidth - 2 * sideMargin; }
    int columnWidth() const { return (textWidth() - gutter) / 2; }
};

/// What the title page says.
struct Title {
    std::string name;
    std::vector<std::string> subtitle;
    std::vector<std::string> imprint; ///< where the text comes from, at the foot
};

} // namespace velmarin
