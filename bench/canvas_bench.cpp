// What a reader waits for: whole operations of the canvas with the painting of the window, offscreen. Medians in
// milliseconds.

#include "platform/ScriptedHost.h"
#include "view/Encoders.h"
#include "view/SmartCanvas.h"

#include <QApplication>
#include <QMouseEvent>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <vector>

#include <time.h>

#include <allheaders.h>

namespace {

using velmarin::Picture;
using velmarin::SmartCanvas;

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
        work(round);
        times.push_back(processorTime() - start);
    }
    std::nth_element(times.begin(), times.begin() + 7, times.end());
    std::printf("%-62s %8.2f ms\n", what, times[7]);
}

std::filesystem::path stripes(int width, int height, int depth, const char* extension) {
    Pix* pix = pixCreate(width, height, 1);
    for (int y = 100; y < height; y += 90)
        for (int x = 100; x < width; x += 37)
            pixRasterop(pix, x, y, 9, 50, PIX_SET, nullptr, 0, 0);
    if (depth == 32) {
        Pix* color = pixConvertTo32(pix);
        pixDestroy(&pix);
        pix = color;
    }
    const std::string bytes = *velmarin::encodePicture(Picture::adopt(pix), extension);
    auto file = std::filesystem::temp_directory_path() / (std::string("velmarin-canvas-bench.") + extension);
    std::ofstream(file, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return file;
}

void times(const char* page, const std::filesystem::path& file, SmartCanvas& canvas) {
    std::printf("%s\n", page);
    const velmarin::FolderItem item(file);
    auto move = [&](QEvent::Type type, const QPoint& at) {
        QMouseEvent event(type, at, canvas.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&canvas, &event);
    };
    for (const int mode : {0, 1, 2}) {
        std::printf(" mode %d\n", mode);
        canvas.setMode(mode);
        report("  page turn: decode and first paint", [&](int) { canvas.SetPicture(item); });
        report("  a jump down (new rows)", [&](int) { canvas.mJumpScroll_vertical(1); });
        report("  a jump up", [&](int) { canvas.mJumpScroll_vertical(0); });
        move(QEvent::MouseButtonPress, {400, 400});
        report(mode == 0 ? "  a step of the lens" : "  a step of a drag", [&](int round) {
            move(QEvent::MouseMove, {400, 390 - 7 * round});
        });
        move(QEvent::MouseButtonRelease, {400, 300});
    }
    std::filesystem::remove(file);
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    velmarin::ScriptedHost host;
    QWidget window;
    window.resize(900, 850);
    SmartCanvas canvas(host, &window);
    canvas.setGeometry(18, 84, 796, 714);
    window.show();
    QApplication::processEvents();
    times("TIFF G4 4960x7016", stripes(4960, 7016, 1, "tif"), canvas);
    times("JPEG color 5480x7300", stripes(5480, 7300, 32, "jpg"), canvas);
}
