#include "reading/PageColumns.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmarin {

namespace {

struct Interval {
    int begin = 0, end = 0;
    int size() const { return end - begin; }
};

// The stretches of a profile that are at least `least`; white of at most `gap` between them belongs to them.
std::vector<Interval> stretchesOf(const std::vector<int>& profile, double least, int gap) {
    std::vector<Interval> stretches;
    for (int i = 0; i < static_cast<int>(profile.size()); ++i) {
        if (profile[static_cast<std::size_t>(i)] < least)
            continue;
        if (!stretches.empty() && i - stretches.back().end <= gap)
            stretches.back().end = i + 1;
        else
            stretches.push_back({i, i + 1});
    }
    return stretches;
}

// In how many rows of letters a column of pixels lies within a letter's box, widened to close the white between letters
// and words. The top and the bottom of the page are left out: a page number there may lie over the white between
// columns.
std::vector<int> coverAcross(const std::vector<PageBox>& letters, int width, Interval rows, double xHeight) {
    std::vector<int> steps(static_cast<std::size_t>(width) + 1);
    const int wider = static_cast<int>(0.2 * xHeight);
    for (const PageBox& box : letters) {
        const int middle = box.y + box.height / 2;
        if (middle < rows.begin || middle >= rows.end)
            continue;
        ++steps[static_cast<std::size_t>(std::clamp(box.x - wider, 0, width))];
        --steps[static_cast<std::size_t>(std::clamp(box.right() + wider, 0, width))];
    }
    steps.pop_back();
    int cover = 0;
    for (int& step : steps)
        cover = step += cover;
    return steps;
}

Interval rowsOfText(const std::vector<PageBox>& letters) {
    std::vector<int> middles;
    middles.reserve(letters.size());
    for (const PageBox& box : letters)
        middles.push_back(box.y + box.height / 2);
    std::ranges::sort(middles);
    const std::size_t few = middles.size() / 50;
    return {middles[few], middles[middles.size() - 1 - few]};
}

double usualCover(const std::vector<int>& cover) {
    std::vector<double> covered;
    for (const int count : cover) {
        if (count > 0)
            covered.push_back(count);
    }
    return medianOf(std::move(covered));
}

// The stretches of text, without what is too narrow for a column: the edge of the facing page, dirt, a rule.
std::vector<Interval> textStretches(const std::vector<int>& cover, double xHeight) {
    constexpr double kFewLines = 8; // whose words may end at one place by chance
    const double usual = usualCover(cover), least = std::max(1.0, 0.12 * usual);
    const double gap = (usual < kFewLines ? 1.5 : 0.5) * xHeight;
    std::vector<Interval> stretches = stretchesOf(cover, least, static_cast<int>(gap));
    int widest = 0;
    for (const Interval& stretch : stretches)
        widest = std::max(widest, stretch.size());
    std::erase_if(stretches,
                  [&](const Interval& stretch) { return stretch.size() < std::max(0.2 * widest, 4 * xHeight); });
    return stretches;
}

// The outer edges of the text, where short lines do not reach, but some do.
void widen(std::vector<Interval>& stretches, const std::vector<int>& cover, double xHeight) {
    if (stretches.empty())
        return;
    const int gap = static_cast<int>(1.5 * xHeight);
    const auto covered = [&](int x) {
        return x >= 0 && x < static_cast<int>(cover.size()) && cover[static_cast<std::size_t>(x)] > 0;
    };
    for (int x = stretches.front().begin - 1; x >= stretches.front().begin - gap; --x) {
        if (covered(x))
            stretches.front().begin = x;
    }
    for (int x = stretches.back().end; x < stretches.back().end + gap; ++x) {
        if (covered(x))
            stretches.back().end = x + 1;
    }
}

// The rows of a profile without those that have much less ink than the rows near them: where lines are set so tightly
// that letters reach into the next line, no row between them is white.
std::vector<int> withoutValleys(const std::vector<int>& profile, double xHeight) {
    std::vector<int> peaks = profile;
    const int size = static_cast<int>(profile.size()), around = std::max(2, static_cast<int>(1.1 * xHeight));
    for (int y = 0; y < size; ++y) {
        const auto first = profile.begin() + std::max(0, y - around),
                   last = profile.begin() + std::min(size, y + around + 1);
        if (profile[static_cast<std::size_t>(y)] < 0.3 * *std::max_element(first, last))
            peaks[static_cast<std::size_t>(y)] = 0;
    }
    return peaks;
}

// The rows of a column in which there is ink.
std::vector<LineBand> linesOf(const std::vector<PageBox>& letters, const TextColumn& column, int height,
                              double xHeight) {
    std::vector<int> profile(static_cast<std::size_t>(height));
    std::vector<const PageBox*> inColumn;
    for (const PageBox& box : letters) {
        const int middle = box.x + box.width / 2;
        if (middle < column.left || middle >= column.right)
            continue;
        inColumn.push_back(&box);
        // The middle of a letter alone: what reaches up or down must not join lines.
        const int shrink = box.height / 5;
        for (int y = std::max(0, box.y + shrink); y < std::min(height, box.bottom() - shrink); ++y)
            profile[static_cast<std::size_t>(y)] += box.width;
    }
    std::vector<LineBand> lines;
    for (const Interval& rows : stretchesOf(withoutValleys(profile, xHeight), std::max(2.0, 0.5 * xHeight), 0)) {
        if (rows.size() < 0.35 * xHeight)
            continue;
        LineBand line{rows.begin, rows.end, column.right, column.left, 0};
        for (const PageBox* box : inColumn) {
            // Of a bent line some letters are above or below most others: they have their larger part in it.
            const int common = std::min(rows.end, box->bottom()) - std::max(rows.begin, box->y);
            if (2 * common < std::min(rows.size(), box->height))
                continue;
            line.left = std::min(line.left, box->x);
            line.right = std::max(line.right, box->right());
            line.covered += box->width;
        }
        if (line.left < line.right)
            lines.push_back(line);
    }
    return lines;
}

} // namespace

std::vector<TextColumn> columnsOf(const StraightPage& page, const std::vector<PageBox>& letters) {
    if (letters.empty())
        return {};
    const int width = pixGetWidth(page.ink.get()), height = pixGetHeight(page.ink.get());
    const Interval rows = rowsOfText(letters);
    const int margin = std::min(rows.size() / 3, std::max(rows.size() / 12, static_cast<int>(2 * page.xHeight)));
    const std::vector<int> cover = coverAcross(letters, width, {rows.begin + margin, rows.end - margin}, page.xHeight);
    std::vector<TextColumn> columns;
    std::vector<Interval> stretches = textStretches(cover, page.xHeight);
    widen(stretches, cover, page.xHeight);
    columns.reserve(stretches.size());
    for (const Interval& stretch : stretches)
        columns.push_back({stretch.begin, stretch.end, {}});
    for (std::size_t i = 0; i + 1 < columns.size(); ++i)
        columns[i].right = columns[i + 1].left = (columns[i].right + columns[i + 1].left) / 2;
    if (!columns.empty()) {
        // Guide words and page numbers may reach a little beyond the text.
        columns.front().left = std::max(0, columns.front().left - static_cast<int>(3 * page.xHeight));
        columns.back().right = std::min(width, columns.back().right + static_cast<int>(3 * page.xHeight));
    }
    for (TextColumn& column : columns)
        column.lines = linesOf(letters, column, height, page.xHeight);
    return columns;
}

} // namespace velmarin
