#include "make_samples/Pagination.h"

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

/// The least height at which two columns hold the rest.
double evenHeight(const std::vector<FlowLine>& flow, std::size_t from, double height) {
    for (double trial = 0; trial < height; trial += 4) {
        const std::size_t middle = columnEnd(flow, from, trial);
        const bool partsWhatBelongs = middle < flow.size() && flow[middle - 1].keepWithNext;
        if (!partsWhatBelongs && columnEnd(flow, middle, trial) == flow.size())
            return trial;
    }
    return height;
}

} // namespace

std::vector<Page> paginate(const std::vector<FlowLine>& flow, double height) {
    std::vector<Page> pages;
    std::size_t at = 0;
    while (at < flow.size()) {
        Page page;
        std::size_t middle = columnEnd(flow, at, height);
        std::size_t end = columnEnd(flow, middle, height);
        const bool isLast = end == flow.size();
        if (isLast) {
            const double even = evenHeight(flow, at, height);
            middle = columnEnd(flow, at, even);
            end = columnEnd(flow, middle, even);
        }
        const double level = isLast ? 0 : height;
        placeColumn(page, flow, at, middle, 0, level);
        placeColumn(page, flow, middle, end, 1, level);
        const std::span<const FlowLine> lines(&flow[at], end - at);
        const auto opening = std::ranges::find_if(lines, &FlowLine::opensArticle);
        page.firstArticle = opening != lines.end() ? opening->article : flow[at].article;
        page.lastArticle = flow[end - 1].article;
        pages.push_back(std::move(page));
        at = end;
    }
    return pages;
}

} // namespace velmarin
