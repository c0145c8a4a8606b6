#include "reading/StraightPage.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace velmarin {

namespace {

constexpr int kLeastWidth = 900; // letters of a page of three columns are then about 7 to 10 pixels high
constexpr double kLeastLetter = 7;
constexpr int kWindow = 24; // about the height of a line there
constexpr int kMostParts = 25'000;
constexpr double kNoTurn = 0.0005; // radians: a pixel in the width of a strip
constexpr double kMaxSkew = 5;     // degrees
constexpr double kSureSkew = 2;    // Leptonica's ratio of the best score to the worst, below which it found no lines

struct Point {
    double x, y;
};

// Leptonica's rotation about a point: where a pixel of the turned picture comes from.
Point turnedBack(Point point, Point center, double angle) {
    const double dx = point.x - center.x, dy = point.y - center.y;
    return {center.x + dx * std::cos(angle) + dy * std::sin(angle),
            center.y + dy * std::cos(angle) - dx * std::sin(angle)};
}

PageBox enclosing(const std::vector<Point>& points) {
    const auto [left, right] = std::ranges::minmax(points, {}, &Point::x);
    const auto [top, bottom] = std::ranges::minmax(points, {}, &Point::y);
    const int x = static_cast<int>(std::floor(left.x)), y = static_cast<int>(std::floor(top.y));
    return {x, y, static_cast<int>(std::ceil(right.x)) - x, static_cast<int>(std::ceil(bottom.y)) - y};
}

std::vector<Point> cornersOf(const PageBox& box) {
    const double left = box.x, top = box.y, right = box.right(), bottom = box.bottom();
    return {{left, top}, {right, top}, {left, bottom}, {right, bottom}};
}

PageBox within(const PageBox& box, int width, int height) {
    const int x = std::clamp(box.x, 0, width), y = std::clamp(box.y, 0, height);
    return {x, y, std::clamp(box.right(), x, width) - x, std::clamp(box.bottom(), y, height) - y};
}

// The largest power of two that leaves letters to be told apart.
int reductionFor(int width) {
    int reduction = 1;
    while (reduction < 16 && width / (reduction * 2) >= kLeastWidth)
        reduction *= 2;
    return reduction;
}

PixPtr greyOf(Pix* pix) {
    switch (pixGetDepth(pix)) {
    case 1:
        return PixPtr(pixConvert1To8(nullptr, pix, 255, 0));
    case 32:
        return PixPtr(pixConvertRGBToLuminance(pix));
    default:
        return PixPtr(pixClone(pix));
    }
}

PixPtr smoothed(PixPtr grey) {
    return grey ? PixPtr(pixBlockconvGray(grey.get(), nullptr, 1, 1)) : nullptr;
}

PixPtr reducedInk(Pix* pix, int reduction) {
    if (pixGetDepth(pix) == 1) {
        PixPtr ink(pixCopy(nullptr, pix));
        for (int factor = reduction; ink && factor > 1; factor /= 2)
            ink.reset(pixReduceRankBinary2(ink.get(), factor == reduction ? 2 : 1, nullptr));
        return ink;
    }
    const auto scale = static_cast<float>(1.0 / reduction);
    const PixPtr reduced(reduction == 1 ? pixClone(pix) : pixScaleAreaMap(pix, scale, scale));
    PixPtr grey = reduced ? greyOf(reduced.get()) : nullptr;
    if (reduction == 1)
        grey = smoothed(std::move(grey));
    return grey ? inkOf(grey.get(), kWindow) : nullptr;
}

// A page of noise: more parts than any page has letters and points. It is smoothed until letters are left.
PixPtr withoutNoise(PixPtr ink) {
    for (int pass = 0; ink && pass < 3; ++pass) {
        l_int32 parts = 0;
        if (pixCountConnComp(ink.get(), 8, &parts) != 0 || parts < kMostParts)
            break;
        const PixPtr grey = smoothed(PixPtr(pixConvert1To8(nullptr, ink.get(), 255, 0)));
        ink.reset(grey ? pixThresholdToBinary(grey.get(), 110) : nullptr);
    }
    return ink;
}

// The height that most ink has: specks weigh little, and pictures are few.
double letterHeight(const std::vector<PageBox>& parts, int pageHeight) {
    std::vector<double> heights;
    for (const PageBox& part : parts) {
        if (part.height >= 4 && part.height < pageHeight / 20 && part.width < 4 * part.height &&
            part.height < 6 * part.width)
            heights.push_back(part.height);
    }
    return medianOf(std::move(heights));
}

// The dark frame that a scan has around the page: what is solid and is connected to the edge of the picture.
void removeBorders(Pix* ink, double xHeight) {
    const PixPtr edge(pixExtractBorderConnComps(ink, 8));
    if (!edge)
        return;
    const int solid = std::max(5, static_cast<int>(1.2 * xHeight));
    const PixPtr seed(pixOpenBrick(nullptr, edge.get(), solid, solid));
    const PixPtr border(seed ? pixSeedfillBinaryRestricted(nullptr, seed.get(), edge.get(), 8, 2 * solid, 2 * solid)
                             : nullptr);
    if (border)
        pixSubtract(ink, ink, border.get());
}

void removeSpecks(Pix* ink, double xHeight) {
    const int size = std::max(2, static_cast<int>(0.3 * xHeight));
    const PixPtr kept(pixSelectBySize(ink, size, size, 8, L_SELECT_IF_EITHER, L_SELECT_IF_GTE, nullptr));
    if (kept)
        pixCopy(ink, kept.get());
}

// Lines much longer than any stroke of a letter, and thin, with small breaks closed. The white within letters is not:
// their serifs would make a line.
PixPtr rulesAlong(Pix* ink, double xHeight, bool upright) {
    const auto brick = [&](const auto& operation, Pix* pix, int along) {
        return PixPtr(operation(nullptr, pix, upright ? 1 : along, upright ? along : 1));
    };
    const int length = std::max(24, static_cast<int>(8 * xHeight)), gap = std::max(2, static_cast<int>(0.25 * xHeight));
    const PixPtr closed = brick(pixCloseSafeBrick, ink, gap);
    const PixPtr lines = closed ? brick(pixOpenBrick, closed.get(), length) : nullptr;
    if (!lines)
        return nullptr;
    const int thick = std::max(6, static_cast<int>(0.9 * xHeight));
    const PixPtr seed(pixOpenBrick(nullptr, lines.get(), upright ? thick : 1, upright ? 1 : thick));
    const PixPtr solid(seed ? pixSeedfillBinary(nullptr, seed.get(), lines.get(), 8) : nullptr);
    return PixPtr(solid ? pixSubtract(nullptr, lines.get(), solid.get()) : nullptr);
}

// The part of a line's length that has some of `hanging` beside it.
double hungPart(Pix* hanging, const PageBox& line, bool upright, int reach) {
    const PixPtr part =
        cutOut(hanging, {line.x - reach, line.y - reach, line.width + 2 * reach, line.height + 2 * reach});
    Numa* counts = !part     ? nullptr
                   : upright ? pixCountPixelsByRow(part.get(), nullptr)
                             : pixCountPixelsByColumn(part.get());
    int hung = 0;
    for (int i = 0; i < numaGetCount(counts); ++i) {
        l_int32 count = 0;
        numaGetIValue(counts, i, &count);
        hung += count > 0;
    }
    numaDestroy(&counts);
    return static_cast<double>(hung) / (upright ? line.height : line.width);
}

// Removes from `lines` the upper and lower edges of words in thick, worn type, whose letters touch: the rest of the
// letters hangs on them.
void removeEdgesOfWords(Pix* lines, Pix* ink, double xHeight, bool upright) {
    constexpr double kMostHung = 0.3;
    const int near = std::max(2, static_cast<int>(0.35 * xHeight)), reach = near + 2;
    const auto widened = [&](int by) {
        return PixPtr(pixDilateBrick(nullptr, lines, upright ? 2 * by + 1 : 1, upright ? 1 : 2 * by + 1));
    };
    const PixPtr inner = widened(near), outer = widened(reach);
    const PixPtr connected(pixSeedfillBinary(nullptr, lines, ink, 8));
    const PixPtr around(inner && outer ? pixSubtract(nullptr, outer.get(), inner.get()) : nullptr),
        hanging(around && connected ? pixAnd(nullptr, around.get(), connected.get()) : nullptr);
    if (!hanging)
        return;
    for (const PageBox& line : componentsOf(lines)) {
        if (hungPart(hanging.get(), line, upright, reach) > kMostHung)
            pixRasterop(lines, line.x, line.y, line.width, line.height, PIX_CLR, nullptr, 0, 0);
    }
}

PixPtr rulesOf(Pix* ink, double xHeight) {
    PixPtr rules = rulesAlong(ink, xHeight, false);
    const PixPtr upright = rulesAlong(ink, xHeight, true);
    if (rules)
        removeEdgesOfWords(rules.get(), ink, xHeight, false);
    if (upright) {
        removeEdgesOfWords(upright.get(), ink, xHeight, true);
        pixOr(rules.get(), rules.get(), upright.get());
    }
    return rules;
}

// Removes the rules, and what else of a broken upright one is left in its way: it would be taken for letters beside
// the columns.
void removeRules(Pix* ink, Pix* rules, double xHeight) {
    const PixPtr wide(pixDilateBrick(nullptr, rules, 1, 3));
    if (wide)
        pixSubtract(ink, ink, wide.get());
    const int narrow = std::max(3, static_cast<int>(0.5 * xHeight)), way = static_cast<int>(16 * xHeight);
    for (const PageBox& rule : componentsOf(rules)) {
        if (rule.height < 3 * rule.width)
            continue;
        const PageBox around{rule.x - 2, rule.y - way, rule.width + 4, rule.height + 2 * way};
        const PixPtr part = cutOut(ink, around);
        for (const PageBox& piece : part ? componentsOf(part.get()) : std::vector<PageBox>()) {
            const bool inside = piece.x > 0 && piece.right() < pixGetWidth(part.get()) && piece.width <= narrow;
            if (inside)
                pixRasterop(ink, std::max(0, around.x) + piece.x, std::max(0, around.y) + piece.y, piece.width,
                            piece.height, PIX_CLR, nullptr, 0, 0);
        }
    }
}

double skewOf(Pix* ink) {
    l_float32 angle = 0, sureness = 0;
    const bool found =
        pixFindSkewSweepAndSearch(ink, &angle, &sureness, 2, 1, static_cast<l_float32>(kMaxSkew), 1, 0.01F) == 0;
    return found && sureness >= kSureSkew ? angle * std::numbers::pi / 180 : 0;
}

} // namespace

PageBox Straightening::enclosingOnPage(const PageBox& straight) const {
    std::vector<Point> corners;
    for (const Point corner : cornersOf(straight)) {
        const Point source = turnedBack(corner, {centerX, centerY}, angle);
        corners.push_back({source.x * reduction, source.y * reduction});
    }
    return enclosing(corners);
}

PageBox Straightening::onPage(const PageBox& straight) const {
    return within(enclosingOnPage(straight), pageWidth, pageHeight);
}

PageBox Straightening::onStraight(const PageBox& page) const {
    std::vector<Point> corners;
    for (const Point corner : cornersOf(page))
        corners.push_back(turnedBack({corner.x / reduction, corner.y / reduction}, {centerX, centerY}, -angle));
    return enclosing(corners);
}

double medianOf(std::vector<double> numbers) {
    if (numbers.empty())
        return 0;
    const auto middle = numbers.begin() + static_cast<std::ptrdiff_t>(numbers.size() / 2);
    std::ranges::nth_element(numbers, middle);
    return *middle;
}

std::vector<PageBox> componentsOf(Pix* ink) {
    Boxa* boxes = pixConnCompBB(ink, 8);
    std::vector<PageBox> parts;
    for (int i = 0; i < boxaGetCount(boxes); ++i) {
        PageBox& box = parts.emplace_back();
        boxaGetBoxGeometry(boxes, i, &box.x, &box.y, &box.width, &box.height);
    }
    boxaDestroy(&boxes);
    return parts;
}

PixPtr cutOut(Pix* pix, const PageBox& box) {
    Box* part = boxCreate(box.x, box.y, box.width, box.height);
    PixPtr cut(part != nullptr ? pixClipRectangle(pix, part, nullptr) : nullptr);
    boxDestroy(&part);
    return cut;
}

PixPtr inkOf(Pix* grey, int window) {
    // The paper becomes 200 everywhere; what is lighter than that by less than the other side's print shows is paper.
    constexpr int kPaper = 200, kLightestInk = 165;
    PixPtr even(pixBackgroundNorm(grey, nullptr, nullptr, 10, 15, 60, 40, kPaper, 2, 1));
    if (!even)
        even.reset(pixClone(grey));
    const int half = std::clamp(window, 2, (std::min(pixGetWidth(grey), pixGetHeight(grey)) - 4) / 2);
    Pix* local = nullptr;
    if (half < 2 || pixSauvolaBinarize(even.get(), half, 0.25F, 1, nullptr, nullptr, nullptr, &local) != 0)
        return PixPtr(pixThresholdToBinary(even.get(), kLightestInk));
    PixPtr ink(local);
    const PixPtr dark(pixThresholdToBinary(even.get(), kLightestInk));
    if (dark)
        pixAnd(ink.get(), ink.get(), dark.get());
    return ink;
}

StraightPage straightenPage(const Picture& picture) {
    StraightPage page;
    if (picture.isNil())
        return page;
    silenceLeptonica();
    int reduction = reductionFor(std::min(picture.Width(), picture.Height()));
    PixPtr ink = withoutNoise(reducedInk(picture.pix(), reduction));
    if (!ink)
        return page;
    page.xHeight = letterHeight(componentsOf(ink.get()), pixGetHeight(ink.get()));
    for (; page.xHeight >= 2 * kLeastLetter; page.xHeight /= 2) {
        PixPtr half(pixReduceRankBinary2(ink.get(), 2, nullptr));
        if (!half)
            break;
        ink = std::move(half);
        reduction *= 2;
    }
    removeBorders(ink.get(), page.xHeight);
    removeSpecks(ink.get(), page.xHeight);
    page.straightening = {.angle = skewOf(ink.get()),
                          .centerX = static_cast<double>(pixGetWidth(ink.get()) / 2),
                          .centerY = static_cast<double>(pixGetHeight(ink.get()) / 2),
                          .reduction = static_cast<double>(reduction),
                          .pageWidth = picture.Width(),
                          .pageHeight = picture.Height()};
    page.ink.reset(pixRotate(ink.get(), static_cast<l_float32>(page.straightening.angle), L_ROTATE_SAMPLING,
                             L_BRING_IN_WHITE, 0, 0));
    page.rules = page.ink ? rulesOf(page.ink.get(), page.xHeight) : nullptr;
    if (page.rules)
        removeRules(page.ink.get(), page.rules.get(), page.xHeight);
    return page;
}

PixPtr cutStraight(const Picture& picture, const Straightening& straightening, const PageBox& straight) {
    if (picture.isNil() || straight.empty())
        return nullptr;
    const PageBox box = straightening.enclosingOnPage(straight);
    const PageBox inPage = within(box, picture.Width(), picture.Height());
    const PixPtr part = inPage.empty() ? nullptr : cutOut(picture.pix(), inPage);
    const PixPtr grey = part ? greyOf(part.get()) : nullptr;
    PixPtr turned(grey ? pixCreate(box.width, box.height, 8) : nullptr);
    if (!turned)
        return nullptr;
    pixSetAll(turned.get());
    pixRasterop(turned.get(), inPage.x - box.x, inPage.y - box.y, inPage.width, inPage.height, PIX_SRC, grey.get(), 0,
                0);
    if (std::abs(straightening.angle) < kNoTurn)
        return turned;
    turned.reset(pixRotateAMGray(turned.get(), static_cast<l_float32>(straightening.angle), 255));
    if (!turned)
        return nullptr;
    // The box that encloses the turned corners has the same center.
    const int width = std::min(box.width, static_cast<int>(straight.width * straightening.reduction));
    const int height = std::min(box.height, static_cast<int>(straight.height * straightening.reduction));
    return cutOut(turned.get(), {(box.width - width) / 2, (box.height - height) / 2, width, height});
}

} // namespace velmarin
