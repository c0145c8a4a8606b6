#include "view/PageImageSize.h"

#include "text/NumberText.h"

#include <algorithm>

namespace velmarin {

namespace {

/// The smallest width at which a page is recognizable.
constexpr double kLeastPageWidth = 350.0;
/// The part of the window height above the page.
constexpr double kHeightAbovePage = 30.0;

int heightFromRatio(double ratio, const Extent& picture) {
    return toInt32(ratio * picture.height + kHeightAbovePage);
}

/// Without a picture this divides by 0; toInt32 turns NaN into 0.
int heightFromWidth(int windowWidth, const Extent& picture) {
    return toInt32(static_cast<double>(windowWidth) / picture.width * picture.height + kHeightAbovePage);
}

} // namespace

double ratioOfText(std::string_view percent) {
    const double value = CDbl(percent);
    return value == 0 ? 1.0 : value / 100.0;
}

Extent windowForPicture(double ratio, const Extent& picture, int leastWidth) {
    const double pageWidth = ratio * picture.width;
    Extent window;
    window.width = std::max(toInt32(std::max(pageWidth, kLeastPageWidth)), leastWidth);
    window.height =
        pageWidth < kLeastPageWidth ? heightFromWidth(window.width, picture) : heightFromRatio(ratio, picture);
    return window;
}

ChosenRatio windowForRatio(double ratio, const Extent& picture, int screenWidth, int leastWidth) {
    const double pageWidth = ratio * picture.width;
    ChosenRatio chosen;
    double width = pageWidth;
    if (picture.width < pageWidth) {
        width = picture.width;
        chosen.info = "The selected ratio is too big.";
    } else if (pageWidth < kLeastPageWidth) {
        width = kLeastPageWidth;
        chosen.info = "The selected ratio is too small.";
    }
    chosen.window.width = std::max(toInt32(width), leastWidth);
    chosen.window.height =
        pageWidth < screenWidth ? heightFromWidth(chosen.window.width, picture) : heightFromRatio(ratio, picture);
    return chosen;
}

} // namespace velmarin
