#include "reading/PrintedWords.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace velmarin {

namespace {

std::vector<int> columnSums(Pix* ink) {
    std::vector<int> sums(static_cast<std::size_t>(pixGetWidth(ink)));
    Numa* counts = pixCountPixelsByColumn(ink);
    for (std::size_t x = 0; x < sums.size(); ++x)
        numaGetIValue(counts, static_cast<l_int32>(x), &sums[x]);
    numaDestroy(&counts);
    return sums;
}

// How much ink each column of pixels has, and how much of it is not at the edge of a stroke.
struct Strokes {
    std::vector<int> ink, inner;

    // The area of a stroke is its length by its thickness, and its edges are twice as long as it is.
    double thickness(std::size_t begin, std::size_t end) const {
        double area = 0, left = 0;
        for (std::size_t x = begin; x < end; ++x) {
            area += ink[x];
            left += inner[x];
        }
        return area > left ? 2 * area / (area - left) : 0;
    }
    double area(std::size_t begin, std::size_t end) const {
        double area = 0;
        for (std::size_t x = begin; x < end; ++x)
            area += ink[x];
        return area;
    }
};

} // namespace

std::vector<PrintedWord> printedWordsOf(const Picture& picture, const StraightPage& page, const LineBand& line,
                                        double length) {
    const int margin = static_cast<int>(0.4 * page.xHeight);
    const int width = std::min(line.right - line.left, static_cast<int>(length * page.xHeight));
    const PageBox cut{line.left - margin, line.top - margin, width + 2 * margin, line.height() + 2 * margin};
    const PixPtr grey = cutStraight(picture, page.straightening, cut);
    const double scale = page.straightening.reduction, xHeight = page.xHeight * scale;
    const PixPtr ink = !grey                  ? nullptr
                       : picture.depth() == 1 ? PixPtr(pixThresholdToBinary(grey.get(), 128))
                                              : inkOf(grey.get(), static_cast<int>(2 * xHeight));
    const PixPtr inner(ink ? pixErodeBrick(nullptr, ink.get(), 3, 3) : nullptr);
    std::vector<PrintedWord> words;
    if (!inner)
        return words;
    const Strokes strokes{columnSums(ink.get()), columnSums(inner.get())};
    const auto finish = [&](std::size_t begin, std::size_t end) {
        const double area = strokes.area(begin, end);
        if (area < 0.06 * xHeight * xHeight)
            return; // dirt
        const bool tells = area > 0.3 * xHeight * xHeight;
        words.push_back({{cut.x + static_cast<int>(static_cast<double>(begin) / scale), line.top,
                          static_cast<int>(std::ceil(static_cast<double>(end - begin) / scale)), line.height()},
                         tells ? strokes.thickness(begin, end) / xHeight : 0});
    };
    const double least = 0.45 * xHeight; // of the white between words
    std::size_t begin = 0, end = 0;
    for (std::size_t x = 0; x < strokes.ink.size(); ++x) {
        if (strokes.ink[x] == 0)
            continue;
        if (end > 0 && static_cast<double>(x - end) > least)
            finish(std::exchange(begin, x), end);
        else if (end == 0)
            begin = x;
        end = x + 1;
    }
    finish(begin, end);
    return words;
}

double usualStroke(const Picture& picture, const StraightPage& page, const TextColumn& column) {
    constexpr double kBegin = 9, kLength = 14; // of the middle of a line, in x-heights
    constexpr std::size_t kLines = 20;
    std::vector<double> strokes;
    const std::size_t step = std::max<std::size_t>(1, column.lines.size() / kLines);
    for (std::size_t i = 0; i < column.lines.size(); i += step) {
        LineBand line = column.lines[i];
        line.left += static_cast<int>(kBegin * page.xHeight);
        if (line.right - line.left < 3 * page.xHeight)
            continue;
        for (const PrintedWord& word : printedWordsOf(picture, page, line, kLength)) {
            if (word.stroke > 0)
                strokes.push_back(word.stroke);
        }
    }
    return medianOf(std::move(strokes));
}

} // namespace velmarin
