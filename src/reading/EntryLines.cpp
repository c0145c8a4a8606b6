#include "reading/EntryLines.h"

#include "reading/PrintedWords.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <utility>

namespace velmarin {

namespace {

constexpr double kBolder = 1.13;                 // strokes of bold letters to those of others
constexpr double kLeastBolder = 1.07;            // where type is so worn, or ink so thick, that they differ less
constexpr double kFirstWord = 6, kHeadword = 30; // lengths of a line, in x-heights

struct Line {
    LineBand band;
    bool indented = false;
    bool afterShort = false; // the line before it does not reach the right edge of the column
    double stroke = 0;       // of its first word; 0 if unknown
    bool bold = false;
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

// Whether a line ends well before the right edge that most lines share.
bool isShort(const LineBand& line, double rightEdge, double xHeight) {
    return line.right < rightEdge - 2.5 * xHeight;
}

double rightEdgeOf(const std::vector<LineBand>& lines) {
    std::vector<double> edges;
    std::ranges::transform(lines, std::back_inserter(edges), &LineBand::right);
    std::ranges::sort(edges);
    return edges.empty() ? 0 : edges[edges.size() * 3 / 4];
}

// A big letter that opens a part of the alphabet, or a heading.
bool isHeading(const LineBand& line, double usualHeight) {
    return line.height() > 1.7 * usualHeight;
}

double firstStroke(const std::vector<PrintedWord>& words) {
    const auto found = std::ranges::find_if(words, [](const PrintedWord& word) { return word.stroke > 0; });
    return found == words.end() ? 0 : found->stroke;
}

int boldEndOf(const std::vector<PrintedWord>& words, double leastBold) {
    int end = 0;
    for (const PrintedWord& word : words) {
        if (word.stroke > 0 && word.stroke < leastBold)
            break;
        if (word.stroke > 0)
            end = word.box.right();
    }
    return end;
}

double medianStroke(const std::vector<Line>& lines, bool indented) {
    std::vector<double> strokes;
    for (const Line& line : lines) {
        if (line.indented == indented && line.stroke > 0)
            strokes.push_back(line.stroke);
    }
    return medianOf(std::move(strokes));
}

// The least stroke of bold words: half way from the usual one to that of the first words of entries.
double leastBoldStroke(const std::vector<Line>& lines, double usual) {
    const double first = std::max(medianStroke(lines, false), medianStroke(lines, true));
    const double bolder = first > kLeastBolder * usual ? (first + usual) / 2 : kBolder * usual;
    return std::clamp(bolder, (1 + kLeastBolder) / 2 * usual, 1.2 * usual);
}

// Whether indented lines begin entries, rather than the others.
bool beginIndented(const std::vector<Line>& lines) {
    double count[2] = {}, bold[2] = {}, after[2] = {};
    for (const Line& line : lines) {
        ++count[line.indented];
        bold[line.indented] += line.bold;
        after[line.indented] += line.afterShort;
    }
    const auto share = [&](const double* sum, bool indented) { return sum[indented] / std::max(1.0, count[indented]); };
    const double bolder = share(bold, true) - share(bold, false), later = share(after, true) - share(after, false);
    return std::abs(bolder) > 0.3 ? bolder > 0 : later > 0.15;
}

std::vector<Line> linesOf(const Picture& picture, const StraightPage& page, const TextColumn& column) {
    const double rightEdge = rightEdgeOf(column.lines);
    std::vector<double> heights;
    std::ranges::transform(column.lines, std::back_inserter(heights), &LineBand::height);
    const double height = medianOf(std::move(heights));
    std::vector<Line> lines;
    for (std::size_t i = 0; i < column.lines.size(); ++i) {
        const LineBand& band = column.lines[i];
        if (!isHeading(band, height))
            lines.push_back({.band = band,
                             .indented = isIndented(column.lines, i, page.xHeight),
                             .afterShort = i > 0 && isShort(column.lines[i - 1], rightEdge, page.xHeight),
                             .stroke = firstStroke(printedWordsOf(picture, page, band, kFirstWord))});
    }
    return lines;
}

} // namespace

std::vector<EntryLine> entryLinesOf(const Picture& picture, const StraightPage& page, const TextColumn& column) {
    std::vector<Line> lines = linesOf(picture, page, column);
    const double leastBold = leastBoldStroke(lines, usualStroke(picture, page, column));
    for (Line& line : lines)
        line.bold = leastBold > 0 && line.stroke >= leastBold;
    const auto indented = static_cast<std::size_t>(std::ranges::count(lines, true, &Line::indented));
    const auto bold = static_cast<std::size_t>(std::ranges::count(lines, true, &Line::bold));
    // Without indented lines most entries have one line, or their headwords alone tell where they begin.
    const bool flush = 10 * indented < lines.size() && 2 * bold < lines.size();
    const bool fromIndented = !flush && beginIndented(lines);
    std::vector<EntryLine> entries;
    for (const Line& line : lines) {
        if (flush ? !line.bold : line.indented != fromIndented)
            continue;
        const PageBox box{line.band.left, line.band.top, line.band.right - line.band.left, line.band.height()};
        entries.push_back(
            {box, line.bold ? boldEndOf(printedWordsOf(picture, page, line.band, kHeadword), leastBold) : 0});
    }
    return entries;
}

} // namespace velmarin
