#include "make_samples/Pagination.h"

#include <algorithm>

namespace velmarin {

namespace {

/// How many pixels between two articles may grow to make a column end level.
constexpr double mostExtraSpace = 9;

double heightAt(const FlowLine& line, bool atHead) {
    return line.leading + (atHead ? 0 : line.spaceBefore);
}

double heightOf(const std::vector<FlowLine>& flow, std::size_t from, std::size_t to) {
    double height = 0;
    for (std::size_t i = from; i < to; ++i)
        height += heightAt(flow[i], i == from);
    return height;
}

/// One past the last line of the column that begins with `from`.
std::size_t columnEnd(const std::vector<FlowLine>& flow, std::size_t from, double height) {
    double used = 0;
    std::size_t end = from;
    while (end < flow.size()) {
        used += heightAt(flow[end], end == from);
        if (used > height && end > from)
            break;
        ++end;
    }
    if (end == flow.size())
        return end;
    std::size_t allowed = end;
    while (allowed > from && flow[allowed - 1].keepWithNext)
        --allowed;
    return allowed > from ? allowed : end;
}

void placeColumn(Page& page, const std::vector<FlowLine>& flow, std::size_t from, std::size_t to, int column,
                 double height, bool level) {
    std::size_t gaps = 0;
    for (std::size_t i = from + 1; i < to; ++i)
        gaps += flow[i].opensArticle ? 1 : 0;
    double extra = 0;
    if (level && gaps > 0)
        extra = std::clamp((height - heightOf(flow, from, to)) / static_cast<double>(gaps), 0.0, mostExtraSpace);
    double baseline = 0;
    for (std::size_t i = from; i < to; ++i) {
        baseline += heightAt(flow[i], i == from);
        if (i > from && flow[i].opensArticle)
            baseline += extra;
        page.lines.push_back({i, column, baseline});
    }
}

void nameArticles(Page& page, const std::vector<FlowLine>& flow) {
    page.firstArticle = flow[page.lines.front().line].article;
    page.lastArticle = flow[page.lines.back().line].article;
    for (const SetLine& set : page.lines) {
        if (flow[set.line].opensArticle) {
            page.firstArticle = flow[set.line].article;
            break;
        }
    }
}

/// The least height at which two columns hold the rest.
double evenHeight(const std::vector<FlowLine>& flow, std::size_t from, double height) {
    for (double trial = heightOf(flow, from, flow.size()) / 2; trial < height; trial += 4) {
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
        placeColumn(page, flow, at, middle, 0, height, !isLast);
        placeColumn(page, flow, middle, end, 1, height, !isLast);
        nameArticles(page, flow);
        pages.push_back(std::move(page));
        at = end;
    }
    return pages;
}

} // namespace velmarin
