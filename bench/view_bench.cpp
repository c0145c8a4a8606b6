// What a page turn and a scroll cost: medians in milliseconds, on one core.

#include "view/Decoders.h"
#include "view/Encoders.h"
#include "view/PageRenderer.h"
#include "view/Picture.h"
#include "view/Scaling.h"

#include <allheaders.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include <time.h>

namespace {

using velmarin::Picture;
using velmarin::Scaling;

/// Milliseconds of processor time: what else the machine does counts little.
double processorTime() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

template <typename Work> void report(const char* what, Work work) {
    std::vector<double> times;
    for (int round = 0; round < 15; ++round) {
        const double start = processorTime();
        work();
        times.push_back(processorTime() - start);
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
    const Picture color = printedPage(5480, 7300, 32);
    report("32 bits 5480x7300 to 796 wide, 714 rows in view", [&] { reduce(color, 796, 714); });
    report("32 bits 5480x7300 to 796 wide, whole page", [&] { reduce(color, 796, 0); });
}

/// Decodes `page` from a file of the given extension.
void decodingTime(const char* what, const Picture& page, const std::string& extension) {
    namespace fs = std::filesystem;
    const fs::path file = fs::temp_directory_path() / ("velmarin-bench." + extension);
    const std::optional<std::string> bytes = velmarin::encodePicture(page, extension);
    std::ofstream(file, std::ios::binary).write(bytes->data(), static_cast<std::streamsize>(bytes->size()));
    report(what, [&] { velmarin::decodePicture(velmarin::FolderItem(file)); });
    fs::remove(file);
}

void decodingTimes() {
    decodingTime("decode TIFF G4 4960x7016", printedPage(4960, 7016, 1), "tif");
    decodingTime("decode PNG 1 bit 4960x7016", printedPage(4960, 7016, 1), "png");
    decodingTime("decode PNG 8 bits 4960x7016", printedPage(4960, 7016, 8), "png");
    decodingTime("decode JPEG color 5480x7300 (40 megapixels)", printedPage(5480, 7300, 32), "jpg");
}

/// What the screen needs for one step, without the screen.
void stepTimes(const char* page, const Picture& picture) {
    velmarin::PageRenderer renderer;
    const int height = picture.Height() * 796 / picture.Width();
    velmarin::PictureDrawn drawn{picture, 0, 0, 796, height, 0, 0, picture.Width(), picture.Height()};
    const velmarin::DeviceRect screen{0, 0, 796, 714};
    for (drawn.sy = 0; drawn.sy < picture.Height(); drawn.sy += 100)
        renderer.render(drawn, 1.0, screen);
    drawn.sy = 0;
    report((std::string(page) + ": a step of scrolling over rows seen before").c_str(), [&] {
        drawn.sy += 10;
        renderer.render(drawn, 1.0, screen);
    });
    report((std::string(page) + ": the lens").c_str(), [&] {
        renderer.render(
            {picture, 100, 100, 300, 100, 700, 700, picture.Width() * 150 / 796, picture.Width() * 50 / 796}, 1.0,
            screen);
    });
    report((std::string(page) + ": the lens at 2x").c_str(), [&] {
        renderer.render(
            {picture, 100, 100, 300, 100, 700, 700, picture.Width() * 150 / 796, picture.Width() * 50 / 796}, 2.0,
            {0, 0, 1592, 1428});
    });
    report((std::string(page) + ": original size").c_str(), [&] {
        renderer.render({picture, 0, 0, picture.Width(), picture.Height(), 90, 90, picture.Width(), picture.Height()},
                        1.0, screen);
    });
    report((std::string(page) + ": original size at 2x").c_str(), [&] {
        renderer.render({picture, 0, 0, picture.Width(), picture.Height(), 90, 90, picture.Width(), picture.Height()},
                        2.0, {0, 0, 1592, 1428});
    });
}

} // namespace

int main() {
    scalingTimes();
    decodingTimes();
    stepTimes("1 bit 4960x7016", printedPage(4960, 7016, 1));
    stepTimes("32 bits 5480x7300", printedPage(5480, 7300, 32));
}
