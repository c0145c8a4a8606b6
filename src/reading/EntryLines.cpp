#include "reading/EntryLines.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace velmarin {

namespace {

constexpr double kHeavier = 1.15; // of bold letters to others, at least

struct Line {
    LineBand band;
    bool indented = false;
    double weight = 0; // the part of the first word's place that is ink
};

// Measured from the leftmost edge that some of the lines around it share, since a column may lean, and dirt beside a
// line is no edge.
bool isIndented(const std::vector<LineBand>& lines, std::size_t i, double xHeight) {
    constexpr std::size_t kAround = 8, kSharing = 2;
    const auto first = lines.begin() + static_cast<std::ptrdiff_t>(i < kAround ? 0 : i - kAround);
    const auto last = lines.begin() + static_cast<std::ptrdiff_t>(std::min(lines.size(), i + kAround + 1));
    std::vector<int> edges;
    std::transform(first, last, std::back_inserter(edges), [](const LineBand& line) { return line.left; });
    std::ranges::sort(edges);
    std::size_t edge = 0;
    while (edge + kSharing < edges.size() && edges[edge + kSharing] - edges[edge] > 0.6 * xHeight)
        ++edge;
    return lines[i].left - (edge + kSharing < edges.size() ? edges[edge] : edges.front()) > 0.8 * xHeight;
}

// The part of a line's place that is ink, between two distances from its beginning in x-heights.
double weightOf(const StraightPage& page, const LineBand& line, double from, double to) {
    const int left = line.left + static_cast<int>(from * page.xHeight);
    const int right = std::min(line.right, line.left + static_cast<int>(to * page.xHeight));
    const PixPtr ink = left < right ? cutOut(page.ink.get(), {left, line.top, right - left, line.height()}) : nullptr;
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
    constexpr double kFirstWord = 5, kRest = 8, kRestEnd = 20; // of a line, in x-heights
    std::vector<Line> lines;
    std::vector<double> rests;
    for (std::size_t i = 0; i < column.lines.size(); ++i) {
        const LineBand& band = column.lines[i];
        lines.push_back({band, isIndented(column.lines, i, page.xHeight), weightOf(page, band, 0, kFirstWord)});
        if (band.right - band.left > 1.5 * kRest * page.xHeight)
            rests.push_back(weightOf(page, band, kRest, kRestEnd));
    }
    const double out = meanWeight(lines, false), in = meanWeight(lines, true), usual = medianOf(std::move(rests));
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
