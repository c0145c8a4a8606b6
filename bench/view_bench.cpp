// What a page turn and a scroll cost: medians in milliseconds, on one core.

#include "view/Picture.h"
#include "view/Scaling.h"

#include <allheaders.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <random>
#include <vector>

namespace {

using velmarin::Picture;
using velmarin::Scaling;

template <typename Work> void report(const char* what, Work work) {
    std::vector<double> times;
    for (int round = 0; round < 15; ++round) {
        const auto start = std::chrono::steady_clock::now();
        work();
        times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    std::nth_element(times.begin(), times.begin() + 7, times.end());
    std::printf("%-62s %8.2f ms\n", what, times[7]);
}

/// Something like print: short strokes in lines, on paper.
Picture printedPage(int width, int height, int depth) {
    std::mt19937 random(1);
    Pix* pix = pixCreate(width, height, 1);
    for (int top = 200; top + 80 < height; top += 100)
        for (int left = 200; left + 60 < width; left += 30 + static_cast<int>(random() % 20))
            pixRasterop(pix, left, top + static_cast<int>(random() % 20), 6 + static_cast<int>(random() % 8),
                        20 + static_cast<int>(random() % 40), PIX_SET, nullptr, 0, 0);
    if (depth > 1) {
        Pix* deeper = depth == 8 ? pixConvertTo8(pix, 0) : pixConvertTo32(pix);
        pixDestroy(&pix);
        pix = deeper;
    }
    return Picture::adopt(pix);
}

/// Scales to `toWidth`, the first `rows` rows of it (0: all).
void reduce(const Picture& page, int toWidth, int rows) {
    const auto height = static_cast<int>(std::int64_t{page.Height()} * toWidth / page.Width());
    const Scaling scaling(page, 0, 0, page.Width(), page.Height(), toWidth, height);
    const int bottom = rows == 0 ? height : std::min(rows, height);
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(toWidth) * bottom * scaling.bytesPerPixel());
    scaling.band(0, toWidth, 0, bottom, pixels.data(), std::ptrdiff_t{toWidth} * scaling.bytesPerPixel());
}

void scalingTimes() {
    const Picture a4 = printedPage(4960, 7016, 1);
    report("1 bit 4960x7016 to 796 wide, 714 rows in view", [&] { reduce(a4, 796, 714); });
    report("1 bit 4960x7016 to 796 wide, 1000 rows", [&] { reduce(a4, 796, 1000); });
    report("1 bit 4960x7016 to 796 wide, whole page", [&] { reduce(a4, 796, 0); });
    report("1 bit 4960x7016 to 505 wide (whole page in view)", [&] { reduce(a4, 505, 0); });
    report("1 bit 4960x7016 to 1592 wide (2x screen), whole page", [&] { reduce(a4, 1592, 0); });
    const Picture grey = printedPage(4960, 7016, 8);
    report("8 bits 4960x7016 to 796 wide, whole page", [&] { reduce(grey, 796, 0); });
    const Picture colour = printedPage(5480, 7300, 32);
    report("32 bits 5480x7300 to 796 wide, 714 rows in view", [&] { reduce(colour, 796, 714); });
    report("32 bits 5480x7300 to 796 wide, whole page", [&] { reduce(colour, 796, 0); });
}

} // namespace

int main() {
    scalingTimes();
}
