#pragma once

#include <string_view>

namespace velmarin {

/// The size of a picture in its own pixels, or of a window's content in logical ones.
struct Extent {
    int width = 0;
    int height = 0;
    friend bool operator==(const Extent&, const Extent&) = default;
};

// The page image window takes its size from its picture and a ratio; the window's size then sets the page's scale.
// Sizes are truncated. `leastWidth` is the minimum width of the window: where the height follows from the width, it
// follows from the width that the window really gets.

/// The ratio for the text of the field, a percentage; 1 if its number is 0.
double ratioOfText(std::string_view percent);

/// The window for a picture that has just been loaded.
Extent windowForPicture(double ratio, const Extent& picture, int leastWidth);

struct ChosenRatio {
    Extent window;
    /// A message for the user; empty if the ratio is used as it is.
    std::string_view info;
};
/// The window for a ratio chosen while `picture` is shown (an empty size before the first picture). A ratio above 1
/// gives the picture's own width.
ChosenRatio windowForRatio(double ratio, const Extent& picture, int screenWidth, int leastWidth);

} // namespace velmarin
