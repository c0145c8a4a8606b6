#pragma once

#include <string_view>

namespace velmarin {

/// The size of a picture in its own pixels, or of a window's content in logical ones.
struct Extent {
    int width = 0;
    int height = 0;
    friend bool operator==(const Extent&, const Extent&) = default;
};

/// The page image window takes its size from its picture and a ratio, so that the window's size sets the page's scale.
/// Sizes are truncated, never rounded. `leastWidth` is the width below which the window does not go: where a height is
/// taken from the width, it is taken from the width that the window really has.

/// What the text of the ratio field means: a percentage; 1 where its number is 0.
double ratioOfText(std::string_view percent);

/// The window for a picture that has just been loaded.
Extent windowForPicture(double ratio, const Extent& picture, int leastWidth);

struct ChosenRatio {
    Extent window;
    /// For the reader; empty where the ratio is taken as it is.
    std::string_view info;
};
/// The window for a ratio that was chosen while `picture` is shown; an empty one where there is none yet. A ratio above
/// 1 gives the picture's own width.
ChosenRatio windowForRatio(double ratio, const Extent& picture, int screenWidth, int leastWidth);

} // namespace velmarin
