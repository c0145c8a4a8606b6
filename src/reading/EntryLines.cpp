#include "reading/EntryLines.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace velmarin {

namespace {

constexpr double kHeavier = 1.15; // of bold letters to others, at least

struct Line {
    LineBand band;
    bool indented = false;
    double weight = 0; // the part of the first word's place that is ink
};

// Measured from the leftmost of the lines around it, since a column may lean.
bool isIndented(const std::vector<LineBand>& lines, std::size_t i, double xHeight) {
    constexpr std::size_t kAround = 8;
    const auto first = lines.begin() + static_cast<std::ptrdiff_t>(i < kAround ? 0 : i - kAround);
    const auto last = lines.begin() + static_cast<std::ptrdiff_t>(std::min(lines.size(), i + kAround + 1));
    const int edge = std::ranges::min_element(first, last, {}, &LineBand::left)->left;
    return lines[i].left - edge > 0.8 * xHeight;
}

double weightOf(const StraightPage& page, const LineBand& line) {
    const PageBox start{line.left, line.top, std::min(line.right - line.left, static_cast<int>(5 * page.xHeight)),
                        line.height()};
    const PixPtr ink = start.empty() ? nullptr : cutOut(page.ink.get(), start);
    l_float32 share = 0;
    if (ink)
        pixForegroundFraction(ink.get(), &share);
    return static_cast<double>(share);
}

double meanWeight(const std::vector<Line>& lines, bool indented) {
    double sum = 0, count = 0;
    for (const Line& line : lines) {
        sum += line.indented == indented ? line.weight : 0;
        count += line.indented == indented;
    }
    return count > 0 ? sum / count : 0;
}

} // namespace

std::vector<EntryLine> entryLinesOf(const StraightPage& page, const TextColumn& column) {
    std::vector<Line> lines;
    std::vector<double> weights;
    for (std::size_t i = 0; i < column.lines.size(); ++i) {
        const LineBand& band = column.lines[i];
        lines.push_back({band, isIndented(column.lines, i, page.xHeight), weightOf(page, band)});
        weights.push_back(lines.back().weight);
    }
    const double out = meanWeight(lines, false), in = meanWeight(lines, true), usual = medianOf(std::move(weights));
    const auto indented = static_cast<std::size_t>(std::ranges::count(lines, true, &Line::indented));
    const bool flush = 10 * indented < lines.size();
    const bool beginIndented = !flush && in > kHeavier * out;
    const double others = flush ? usual : std::min(in, out);
    std::vector<EntryLine> entries;
    for (const Line& line : lines) {
        const bool bold = line.weight > kHeavier * others;
        if (flush ? bold : line.indented == beginIndented)
            entries.push_back(
                {{line.band.left, line.band.top, line.band.right - line.band.left, line.band.height()}, bold});
    }
    return entries;
}

} // namespace velmarin
