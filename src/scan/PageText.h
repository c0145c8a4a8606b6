#pragma once

#include <string>
#include <vector>

namespace velmarin {

/// A rectangle of a page, in pixels of its picture from the top left.
struct PageBox {
    int x = 0, y = 0, width = 0, height = 0;

    int right() const { return x + width; }
    int bottom() const { return y + height; }
    bool empty() const { return width <= 0 || height <= 0; }
};

/// A word on a page, as a text layer or a recognizer gives it.
struct TextWord {
    std::string text;
    PageBox box = {};
    double confidence = 1;                ///< 0 to 1
    std::vector<std::string> others = {}; ///< other readings of the same ink, best first
    bool bold = false;
};

/// A line of words, from left to right.
struct TextLine {
    std::vector<TextWord> words;
    PageBox box = {};
};

/// The text of a page or of a part of it. Boxes are in pixels of the whole page.
struct PageText {
    int width = 0, height = 0; ///< of the page
    std::vector<TextLine> lines = {};
};

} // namespace velmarin
