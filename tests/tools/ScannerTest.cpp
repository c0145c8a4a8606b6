#include "make_scans/Scanner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>

namespace velmarin {
namespace {

constexpr int kWidth = 300;
constexpr int kHeight = 400;

/// A page of lines of "words".
Raster linedPage() {
    Raster page(kWidth, kHeight);
    for (int y = 40; y < kHeight - 40; ++y)
        for (int x = 40; x < kWidth - 40; ++x)
            page.row(y)[x] = y % 20 < 8 && x % 14 < 10 ? 255 : 0;
    return page;
}

Raster scanWith(const Wear& wear, ScanTone tone = ScanTone::Grey, std::uint64_t seed = 1) {
    return scanned({linedPage(), linedPage(), linedPage(), true}, {wear, tone, 100, seed});
}

double meanOf(const Raster& scan) {
    double sum = 0;
    for (const std::uint8_t pixel : scan.pixels)
        sum += pixel;
    return sum / static_cast<double>(scan.pixels.size());
}

TEST(Scanned, TheSeedAloneDecides) {
    const Wear hard = *wearOf("hard");
    EXPECT_EQ(scanWith(hard).pixels, scanWith(hard).pixels);
    EXPECT_NE(scanWith(hard, ScanTone::Grey, 2).pixels, scanWith(hard).pixels);
}

TEST(Scanned, BilevelHasBlackAndWhiteOnly) {
    const Raster scan = scanWith(*wearOf("hard"), ScanTone::Bilevel);
    EXPECT_TRUE(std::ranges::all_of(scan.pixels, [](std::uint8_t pixel) { return pixel == 0 || pixel == 255; }));
    EXPECT_GT(meanOf(scan), 100) << "paper is white";
    EXPECT_LT(meanOf(scan), 250) << "and has ink";
}

TEST(Scanned, EachKindOfWearChangesThePictureItsOwnWay) {
    const Raster plain = scanWith({});
    const struct {
        const char* what;
        Wear wear;
        std::function<bool(const Raster&)> shows;
    } rows[] = {
        {"yellowed paper is darker", {.yellow = 1}, [&](const Raster& s) { return meanOf(s) < meanOf(plain) - 5; }},
        {"bleeding darkens blank paper", {.bleed = 1}, [&](const Raster& s) { return meanOf(s) < meanOf(plain) - 1; }},
        {"broken strokes lose ink", {.broken = 3}, [&](const Raster& s) { return meanOf(s) > meanOf(plain); }},
        {"the facing page and a border widen it",
         {.border = 1},
         [&](const Raster& s) { return s.width > plain.width; }},
        {"curling paper darkens the gutter",
         {.curl = 1},
         [&](const Raster& s) { return s.row(10)[1] < plain.row(10)[1] - 20; }},
    };
    for (const auto& row : rows)
        EXPECT_TRUE(row.shows(scanWith(row.wear))) << row.what;
}

TEST(Scanned, SkewTurnsAboutTheMiddleAndStaysInItsLimits) {
    Raster rule(kWidth, kHeight);
    for (int x = 0; x < kWidth; ++x)
        for (int y = 198; y < 203; ++y)
            rule.row(y)[x] = 255;
    double most = 0;
    for (std::uint64_t seed = 0; seed < 12; ++seed) {
        const Raster scan = scanned({rule, {}, {}, true}, {{.skew = 2}, ScanTone::Bilevel, 300, seed});
        const auto middleAt = [&](int x) {
            int sum = 0, count = 0;
            for (int y = 150; y < 250; ++y) // not the corners, where the page ends
                if (scan.row(y)[x] == 0) {
                    sum += y;
                    ++count;
                }
            return count == 0 ? -1.0 : static_cast<double>(sum) / count;
        };
        EXPECT_NEAR(middleAt(kWidth / 2), 200, 2);
        most = std::max(most, std::abs(middleAt(kWidth - 20) - middleAt(20)));
    }
    EXPECT_GT(most, 3);
    EXPECT_LT(most, (kWidth - 40) * 0.036) << "two degrees";
}

TEST(Blur, KeepsTheInkAndSpreadsIt) {
    Raster dot(41, 41);
    dot.row(20)[20] = 255;
    blur(dot, 2);
    EXPECT_NEAR(meanOf(dot) * 41 * 41, 255, 60);
    EXPECT_GT(dot.row(20)[20], dot.row(20)[24]);
    EXPECT_EQ(dot.row(20)[18], dot.row(18)[20]);
}

} // namespace
} // namespace velmarin
