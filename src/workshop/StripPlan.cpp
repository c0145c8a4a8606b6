#include "workshop/StripPlan.h"

#include <algorithm>
#include <cmath>

namespace velmarin {

namespace {

constexpr double kGreatestScale = 2;
/// The share of a page that counts as its head if nothing is known of it.
constexpr int kHeadShare = 8;
/// The share of the page's width that is left around a strip.
constexpr int kMarginShare = 100;

PageBox clipped(const PageBox& box, int width, int height) {
    const int x = std::clamp(box.x, 0, width), y = std::clamp(box.y, 0, height);
    return {x, y, std::clamp(box.right(), x, width) - x, std::clamp(box.bottom(), y, height) - y};
}

PageBox stripOf(const StripRequest& request) {
    const int margin = request.pageWidth / kMarginShare;
    const PageBox& box = request.strip;
    const PageBox around{box.x - margin, box.y - margin, box.width + 2 * margin, box.height + 2 * margin};
    const PageBox strip = box.empty() ? PageBox{} : clipped(around, request.pageWidth, request.pageHeight);
    return strip.empty() ? PageBox{0, 0, request.pageWidth, std::max(1, request.pageHeight / kHeadShare)} : strip;
}

int rounded(double value) {
    return static_cast<int>(std::lround(value));
}

} // namespace

StripPlan planStrip(const StripRequest& request) {
    if (request.pageWidth <= 0 || request.pageHeight <= 0 || request.width <= 0 || request.height <= 0)
        return {};
    const PageBox strip = stripOf(request);
    const double fitting = std::min({static_cast<double>(request.width) / strip.width,
                                     static_cast<double>(request.height) / strip.height, kGreatestScale});
    const double scale = std::min(fitting * request.zoom, kGreatestScale);

    const int width = std::clamp(rounded(request.width / scale), 1, strip.width);
    const int height = std::clamp(rounded(request.height / scale), 1, request.pageHeight);
    const int spare = strip.width - width;
    const int x = strip.x + (request.side == StripSide::Left     ? 0
                             : request.side == StripSide::Middle ? spare / 2
                                                                 : spare);
    const bool atFoot = strip.y + strip.height / 2 > request.pageHeight / 2;
    const int y = std::clamp(atFoot ? strip.bottom() - height : strip.y, 0, request.pageHeight - height);

    StripPlan plan;
    plan.source = {x, y, width, height};
    plan.target = {0, 0, std::min(rounded(width * scale), request.width),
                   std::min(rounded(height * scale), request.height)};
    plan.target.x = (request.width - plan.target.width) / 2;
    plan.strip = clipped({0, rounded((strip.y - y) * scale), plan.target.width, rounded(strip.height * scale)},
                         plan.target.width, plan.target.height);
    plan.strip.x = plan.target.x;
    return plan;
}

} // namespace velmarin
