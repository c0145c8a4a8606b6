#include "press/Pagination.h"

#include <algorithm>
#include <span>

namespace velmarin {

namespace {

/// How many pixels between two articles may grow to make a column end level.
constexpr double kMostExtraSpace = 9;

double heightAt(const FlowLine& line, bool atHead) {
    return line.leading + (atHead ? 0 : line.spaceBefore);
}

/// One past the last line of the column that begins with `from`.
std::size_t columnEnd(const std::vector<FlowLine>& flow, std::size_t from, double height) {
    std::size_t end = from;
    for (double used = 0; end < flow.size(); ++end)
        if ((used += heightAt(flow[end], end == from)) > height && end > from)
            break;
    std::size_t allowed = end;
    while (end < flow.size() && allowed > from && flow[allowed - 1].keepWithNext)
        --allowed;
    return allowed > from ? allowed : end;
}

void placeColumn(Page& page, const std::vector<FlowLine>& flow, std::size_t from, std::size_t to, int column,
                 double height) {
    double left = height;
    double gaps = 0;
    for (std::size_t i = from; i < to; ++i) {
        left -= heightAt(flow[i], i == from);
        gaps += i > from && flow[i].opensArticle ? 1 : 0;
    }
    const double extra = gaps > 0 ? std::clamp(left / gaps, 0.0, kMostExtraSpace) : 0;
    double baseline = 0;
    for (std::size_t i = from; i < to; ++i) {
        baseline += heightAt(flow[i], i == from) + (i > from && flow[i].opensArticle ? extra : 0);
        page.lines.push_back({i, column, baseline});
    }
}

/// The ends of columns that begin with `from`.
std::vector<std::size_t> columnEnds(const std::vector<FlowLine>& flow, std::size_t from, double height, int columns) {
    std::vector<std::size_t> ends;
    for (int column = 0; column < columns; ++column)
        ends.push_back(from = columnEnd(flow, from, height));
    return ends;
}

/// The ends of the columns of the least height that hold the rest.
std::vector<std::size_t> evenColumns(const std::vector<FlowLine>& flow, std::size_t from, double height, int columns) {
    const auto partsWhatBelongs = [&](std::size_t end) { return end < flow.size() && flow[end - 1].keepWithNext; };
    for (double trial = 0; trial < height; trial += 4) {
        auto ends = columnEnds(flow, from, trial, columns);
        if (ends.back() == flow.size() && std::ranges::none_of(ends, partsWhatBelongs))
            return ends;
    }
    return columnEnds(flow, from, height, columns);
}

} // namespace

std::vector<Page> paginate(const std::vector<FlowLine>& flow, double height, int columns) {
    std::vector<Page> pages;
    std::size_t at = 0;
    while (at < flow.size()) {
        Page page;
        auto ends = columnEnds(flow, at, height, columns);
        const bool isLast = ends.back() == flow.size();
        if (isLast)
            ends = evenColumns(flow, at, height, columns);
        std::size_t from = at;
        for (int column = 0; column < columns; ++column) {
            const std::size_t end = ends[static_cast<std::size_t>(column)];
            placeColumn(page, flow, from, end, column, isLast ? 0 : height);
            from = end;
        }
        const std::span<const FlowLine> lines(&flow[at], ends.back() - at);
        const auto opening = std::ranges::find_if(lines, &FlowLine::opensArticle);
        page.firstArticle = opening != lines.end() ? opening->article : flow[at].article;
        page.lastArticle = flow[ends.back() - 1].article;
        pages.push_back(std::move(page));
        at = ends.back();
    }
    return pages;
}

} // namespace velmarin
