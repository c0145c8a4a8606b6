// The scrolling of PageView.

#include "view/PageView.h"

#include "text/NilObjectException.h"
#include "text/NumberText.h"

#include <algorithm>
#include <cmath>

namespace velmarin {
namespace {

constexpr double kWheelFactor = 40.0;
/// What two successive screenfuls share, in image pixels.
constexpr double kOverlap = 50.0;

int moved(int position, int by, int most) {
    const std::int64_t sum = std::int64_t{position} + by;
    return static_cast<int>(std::clamp<std::int64_t>(std::min<std::int64_t>(most, sum), 0, INT32_MAX));
}

int difference(int a, int b) {
    return toInt32(static_cast<double>(a) - b);
}

} // namespace

int PageView::maxX() const {
    return toInt32(std::max(0.0, image().Width() - port_.Width() / Ratio));
}

int PageView::maxY() const {
    return toInt32(std::max(0.0, image().Height() - port_.Height() / Ratio));
}

void PageView::NormalScroll(int x, int y) {
    const int dx = toInt32(difference(StartPosition[0], x) / Ratio);
    const int dy = toInt32(difference(StartPosition[1], y) / Ratio);
    const std::array<int, 2> kept = ScrollPosition;
    ScrollPosition = {moved(kept[0], dx, maxX()), moved(kept[1], dy, maxY())};
    FinalScrollPosition = ScrollPosition;
    Refresh();
    ScrollPosition = kept;
}

void PageView::SmartScroll(int x, int y) {
    // The position of the last press counts although a wheel or a key has nothing to do with it: required behavior.
    const int dx = difference(StartPosition[0], x);
    const int dy = difference(StartPosition[1], y);
    ScrollPosition = {moved(ScrollPosition[0], dx, maxX()), moved(ScrollPosition[1], dy, maxY())};
    Refresh();
}

bool PageView::Event_MouseWheel(int, int, int deltaX, int deltaY) {
    if (Image && UseMouseWheel)
        SmartScroll(toInt32(deltaX / Ratio * kWheelFactor),
                    toInt32(-static_cast<double>(deltaY) / Ratio * kWheelFactor));
    return true;
}

std::string PageView::positionText() const {
    return Str(ScrollPosition[1]) + "\n" + Str(Image.Height());
}

void PageView::mJumpScroll_vertical(int direction) {
    if (!Image)
        return;
    if (direction == 1)
        jumpDown();
    else if (direction == 0)
        jumpUp();
    else
        drawMarker(0, "");
}

void PageView::jumpDown() {
    const int H = port_.Height();
    const int sy = ScrollPosition[1];
    // Not limited to 0: on a page shorter than the view the position becomes negative.
    const int lowest = toInt32(Image.Height() - H / Ratio);
    const int target = toInt32(static_cast<double>(sy) + toInt32(H / Ratio - kOverlap));
    if (target <= lowest) {
        ScrollPosition[1] = FinalScrollPosition[1] = target;
        canvas_.ForeColor = kRed;
        drawMarker(toInt32(kOverlap * Ratio), positionText());
    } else if (sy == lowest) {
        Refresh();
    } else {
        const int y = difference(H, toInt32((static_cast<double>(lowest) - sy + kOverlap) * Ratio));
        ScrollPosition[1] = FinalScrollPosition[1] = lowest;
        canvas_.ForeColor = kGreen;
        drawMarker(y, "Lowest");
    }
}

void PageView::jumpUp() {
    const int H = port_.Height();
    const int sy = ScrollPosition[1];
    const int target = toInt32(sy - H / Ratio + kOverlap);
    if (target >= 0) {
        ScrollPosition[1] = FinalScrollPosition[1] = target;
        canvas_.ForeColor = kRed;
        Refresh();
        drawMarker(toInt32(H - kOverlap * Ratio), positionText());
    } else if (sy == 0) {
        Refresh();
    } else {
        const int y = toInt32(H - std::abs(target * Ratio));
        ScrollPosition[1] = FinalScrollPosition[1] = 0;
        canvas_.ForeColor = kGreen;
        Refresh();
        drawMarker(y, "Highest");
    }
}

void PageView::drawMarker(int y, const std::string& text) {
    Refresh();
    canvas_.PenHeight = 1;
    canvas_.DrawLine(0, y, port_.Width(), y);
    canvas_.text.Italic = true;
    canvas_.DrawString(text, 5, y, 50);
    canvas_.ForeColor = kBlack;
    port_.drawnOver();
}

void PageView::mCompleteScroll_vertical(int direction) {
    if (direction == 0) {
        ScrollPosition[1] = FinalScrollPosition[1] = 0;
        Refresh();
    } else if (direction == 1) {
        const int H = port_.Height();
        const int lowest = toInt32(image().Height() - H / Ratio);
        ScrollPosition[1] = FinalScrollPosition[1] = std::max(lowest, 0);
        Refresh();
        const int d = toInt32(Image.Height() * Ratio - H);
        if (d >= 0 && H - d >= 0) {
            canvas_.ForeColor = kRed;
            canvas_.PenHeight = 1;
            canvas_.DrawLine(0, H - d, port_.Width(), H - d);
            port_.drawnOver();
        }
    }
}

void PageView::GetScrollPosition(std::array<int, 4>& a) const {
    a = {maxX(), maxY(), ScrollPosition[0], ScrollPosition[1]};
}

void PageView::SetScrollPosition(int x, int y) {
    ScrollPosition = {x, y};
}

} // namespace velmarin
