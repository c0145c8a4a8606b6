#include "workshop/StripPlan.h"

#include <algorithm>
#include <cmath>

namespace velmarin {

namespace {

constexpr double kGreatestScale = 2;
/// Of words: large, and reduced enough for the edges of 1-bit pages to be smooth.
constexpr double kWordScale = 0.75;
/// The share of a page that counts as its head if nothing is known of it.
constexpr int kHeadShare = 8;
/// The share of the page's width that is left around a strip.
constexpr int kMarginShare = 100;
/// The share of a view's height that enlarged words get.
constexpr int kWordsShare = 3;
/// What is gained by less is not worth the room.
constexpr double kLeastGain = 1.3;
/// In pixels of the view.
constexpr int kBetweenPieces = 8;

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

/// The words with some room around them, those that are close together as one.
std::vector<PageBox> joinedWords(const StripRequest& request, const PageBox& strip, const std::vector<PageBox>& words) {
    std::vector<PageBox> joined;
    const int room = strip.height / 4;
    for (const PageBox& word : words) {
        const PageBox box = clipped({word.x - room, strip.y, word.width + 2 * room, strip.height}, request.pageWidth,
                                    request.pageHeight);
        if (!joined.empty() && box.x <= joined.back().right() + room)
            joined.back().width = std::max(box.right(), joined.back().right()) - joined.back().x;
        else
            joined.push_back(box);
    }
    return joined;
}

/// Moves pieces apart, and into the view.
void spread(std::vector<StripPiece>& pieces, int width) {
    int from = 0;
    for (StripPiece& piece : pieces) {
        piece.target.x = std::max(piece.target.x, from);
        from = piece.target.right() + kBetweenPieces;
    }
    int to = width;
    for (auto piece = pieces.rbegin(); piece != pieces.rend(); ++piece) {
        piece->target.x = std::min(piece->target.x, to - piece->target.width);
        to = piece->target.x - kBetweenPieces;
    }
}

} // namespace

std::vector<StripPiece> planWords(const StripRequest& request, const std::vector<PageBox>& words) {
    if (request.strip.empty() || request.pageWidth <= 0 || request.zoom > 1)
        return {};
    const PageBox strip = clipped(request.strip, request.pageWidth, request.pageHeight);
    const std::vector<PageBox> joined = joinedWords(request, strip, words);
    int all = 0;
    for (const PageBox& box : joined)
        all += box.width;
    const int room = request.width - kBetweenPieces * static_cast<int>(joined.size());
    if (all == 0 || strip.empty() || room <= 0)
        return {};
    const double scale = std::min({static_cast<double>(room) / all,
                                   static_cast<double>(request.height) / kWordsShare / strip.height, kWordScale});
    if (scale < kLeastGain * request.width / request.pageWidth)
        return {};
    std::vector<StripPiece> pieces;
    for (const PageBox& box : joined) {
        const int width = static_cast<int>(box.width * scale); // never more than there is in all
        const double middle = (box.x + box.width / 2.0) / request.pageWidth;
        pieces.push_back({box, {rounded(middle * request.width) - width / 2, 0, width, rounded(box.height * scale)}});
    }
    spread(pieces, request.width);
    return pieces;
}

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
