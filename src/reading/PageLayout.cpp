#include "reading/PageLayout.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <utility>

namespace velmarin {

namespace {

constexpr double kLetters = 0.75; // of the length of a line, the part that is not white between letters and words
constexpr int kMostRows = 6;      // at an edge of the page that may belong to its head, with dirt above it

// Which part of the width of the text has a rule across it, somewhere between two heights.
using RuleCover = std::function<double(int top, int bottom)>;

std::vector<PageBox> lettersOf(const StraightPage& page) {
    std::vector<PageBox> letters = componentsOf(page.ink.get());
    std::erase_if(letters, [&](const PageBox& box) {
        const bool dash = box.height < 0.7 * page.xHeight && box.width > 3 * box.height;
        return dash || box.height < 0.4 * page.xHeight || box.height > 4 * page.xHeight ||
               box.width > 12 * page.xHeight;
    });
    return letters;
}

// The big letters that open a part of the alphabet.
std::vector<PageBox> initialsOf(const StraightPage& page) {
    std::vector<PageBox> initials = componentsOf(page.ink.get());
    std::erase_if(initials, [&](const PageBox& box) {
        return box.height < 2.2 * page.xHeight || box.height > 12 * page.xHeight || box.width > 12 * page.xHeight ||
               box.width < 0.2 * box.height;
    });
    return initials;
}

double pitchOf(const std::vector<TextColumn>& columns) {
    std::vector<double> distances;
    for (const TextColumn& column : columns) {
        for (std::size_t i = 1; i < column.lines.size(); ++i)
            distances.push_back(column.lines[i].middle() - column.lines[i - 1].middle());
    }
    return medianOf(std::move(distances));
}

// The lines at one end of the columns that are at one height.
struct EdgeRow {
    std::vector<std::size_t> columns; ///< those that have a line in it
    PageBox box;
    double filled = 0;   ///< the part of the text's width that has letters
    double farther = 0;  ///< the distance to the next line, in line pitches; the least of all columns
    bool ruled = false;  ///< there is a rule across the text between it and the next lines
    bool asText = false; ///< each of its lines begins where the next lines of its column do

    // How much speaks for a head. A line of the text has at most 1. A short one that nothing parts from the next may be
    // an entry, or the end of one at the top of the only column that reaches so high.
    int score() const {
        if (!ruled && farther < (asText ? 1.35 : columns.size() < 2 ? 1.15 : 0))
            return 0;
        return (ruled ? 3 : 0) + (farther >= 1.35) + (farther >= 1.15) + (filled < 0.7) + (filled < 0.4);
    }
};

// Takes rows away from the top of the columns while they look like a head.
class EdgeFinder {
  public:
    EdgeFinder(std::vector<TextColumn> columns, std::vector<PageBox> initials, double pitch, double xHeight,
               RuleCover cover)
        : columns_(std::move(columns)), initials_(std::move(initials)), pitch_(pitch), xHeight_(xHeight),
          cover_(std::move(cover)), taken_(columns_.size()) {}

    // Finds the last of the first rows whose score is at least `least`, and up to two rows near above it. What is
    // farther above is dirt at the edge of the page.
    void find(int least) {
        std::vector<std::size_t> taken = taken_;
        std::vector<PageBox> rows;
        for (int row = 0; row < kMostRows; ++row) {
            const std::optional<EdgeRow> edge = takeRow(taken);
            if (!edge)
                break;
            rows.push_back(edge->box);
            if (edge->score() >= least + (row > 0 ? 1 : 0)) {
                taken_ = taken;
                found_ = rows;
            }
            if (edge->ruled)
                break;
        }
        while (found_.size() > 3 || (found_.size() > 1 && found_[1].y - found_[0].y > 3.5 * pitch_))
            found_.erase(found_.begin());
    }

    const std::vector<PageBox>& found() const { return found_; }
    const std::vector<std::size_t>& taken() const { return taken_; }

  private:
    std::optional<EdgeRow> takeRow(std::vector<std::size_t>& taken) const {
        const std::optional<double> first = nextMiddle(taken);
        if (!first)
            return std::nullopt;
        EdgeRow row;
        int left = columns_.back().right, right = 0, top = 0, bottom = 0;
        double letters = 0;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (taken[i] == columns_[i].lines.size())
                continue;
            const LineBand& line = columns_[i].lines[taken[i]];
            if (line.middle() > *first + 1.2 * xHeight_)
                continue;
            top = row.columns.empty() ? line.top : std::min(top, line.top);
            bottom = std::max(bottom, line.bottom);
            left = std::min(left, line.left);
            right = std::max(right, line.right);
            letters += std::min<double>(line.right - line.left, line.covered / kLetters);
            row.columns.push_back(i);
            ++taken[i];
        }
        row.box = {left, top, right - left, bottom - top};
        row.filled = letters / textWidth();
        describeSeparation(row, taken);
        row.asText = std::ranges::all_of(row.columns, [&](std::size_t i) { return beginsAsText(i, taken[i]); });
        return row;
    }

    // Whether the line of a column before its `next` one begins within the left edges of the lines after it.
    bool beginsAsText(std::size_t column, std::size_t next) const {
        constexpr std::size_t kLines = 8;
        const std::vector<LineBand>& lines = columns_[column].lines;
        const auto after = [&](std::size_t i) { return lines.begin() + static_cast<std::ptrdiff_t>(i); };
        if (next + 2 > lines.size())
            return false;
        const auto [least, most] =
            std::minmax_element(after(next), after(std::min(lines.size(), next + kLines)),
                                [](const LineBand& one, const LineBand& other) { return one.left < other.left; });
        const double slack = 0.6 * xHeight_;
        return lines[next - 1].left > least->left - slack && lines[next - 1].left < most->left + slack;
    }

    void describeSeparation(EdgeRow& row, const std::vector<std::size_t>& taken) const {
        double least = 1e9;
        int below = row.box.bottom() + static_cast<int>(4 * pitch_);
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (taken[i] == columns_[i].lines.size())
                continue;
            const LineBand& next = columns_[i].lines[taken[i]];
            below = std::min(below, next.top);
            const bool inRow = std::ranges::find(row.columns, i) != row.columns.end();
            if (initialBetween(columns_[i], row.box.bottom(), next.top))
                continue; // there is white around an initial within the text, too
            least = std::min(least, next.middle() - (inRow ? columns_[i].lines[taken[i] - 1].middle()
                                                           : row.box.y + row.box.height / 2.0));
        }
        row.farther = pitch_ > 0 && least < 1e9 ? least / pitch_ : 0;
        row.ruled = cover_(row.box.y + row.box.height / 2, std::max(below, row.box.bottom()) + 1) > 0.5;
    }

    bool initialBetween(const TextColumn& column, int top, int bottom) const {
        return std::ranges::any_of(initials_, [&](const PageBox& box) {
            const int x = box.x + box.width / 2, y = box.y + box.height / 2;
            return x >= column.left && x < column.right && y >= top && y < bottom;
        });
    }

    std::optional<double> nextMiddle(const std::vector<std::size_t>& taken) const {
        std::optional<double> first;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (taken[i] < columns_[i].lines.size() && (!first || columns_[i].lines[taken[i]].middle() < *first))
                first = columns_[i].lines[taken[i]].middle();
        }
        return first;
    }

    double textWidth() const { return std::max(1, columns_.back().right - columns_.front().left); }

    std::vector<TextColumn> columns_;
    std::vector<PageBox> initials_;
    double pitch_, xHeight_;
    RuleCover cover_;
    std::vector<std::size_t> taken_; // lines that belong to the head, by column
    std::vector<PageBox> found_;
};

RuleCover ruleCoverOf(const StraightPage& page, int left, int right) {
    return [&page, left, right](int top, int bottom) {
        const int y = std::max(0, top), height = std::min(bottom, pixGetHeight(page.ink.get())) - y;
        const PixPtr part =
            page.rules && height > 0 ? cutOut(page.rules.get(), {left, y, right - left, height}) : nullptr;
        if (!part)
            return 0.0;
        int covered = 0;
        Numa* sums = pixCountPixelsByColumn(part.get());
        for (int x = 0; x < numaGetCount(sums); ++x) {
            l_int32 count = 0;
            numaGetIValue(sums, x, &count);
            covered += count > 0;
        }
        numaDestroy(&sums);
        return static_cast<double>(covered) / (right - left);
    };
}

// The columns upside down, so that the foot becomes the head.
std::vector<TextColumn> upsideDown(std::vector<TextColumn> columns, int height) {
    for (TextColumn& column : columns) {
        std::ranges::reverse(column.lines);
        for (LineBand& line : column.lines)
            line = {height - line.bottom, height - line.top, line.left, line.right, line.covered};
    }
    return columns;
}

/// Rows that touch are parts of one line that is not quite straight. Specks make no row.
std::vector<PageBox> joinedRows(const std::vector<PageBox>& rows, double xHeight) {
    std::vector<PageBox> joined;
    for (const PageBox& row : rows) {
        const bool speck = row.height < 0.6 * xHeight && row.width < 2 * xHeight;
        if (joined.empty() || joined.back().bottom() + 0.2 * xHeight < row.y) {
            if (!speck)
                joined.push_back(row);
            continue;
        }
        PageBox& last = joined.back();
        const int left = std::min(last.x, row.x), top = std::min(last.y, row.y);
        last = {left, top, std::max(last.right(), row.right()) - left, std::max(last.bottom(), row.bottom()) - top};
    }
    return joined;
}

void findHeadAndFoot(const StraightPage& page, PageLayout& layout) {
    const int height = pixGetHeight(page.ink.get());
    const RuleCover cover = ruleCoverOf(page, layout.columns.front().left, layout.columns.back().right);
    const std::vector<PageBox> initials = initialsOf(page);
    EdgeFinder head(layout.columns, initials, layout.linePitch, page.xHeight, cover);
    head.find(2);
    EdgeFinder foot(upsideDown(layout.columns, height), {}, layout.linePitch, page.xHeight,
                    [&](int top, int bottom) { return cover(height - bottom, height - top); });
    foot.find(3);
    if (!head.found().empty() && head.found().front().y < height / 3)
        layout.headRows = joinedRows(head.found(), page.xHeight);
    if (!foot.found().empty() && foot.found().front().y < height / 3) {
        for (const PageBox& row : foot.found())
            layout.footRows.insert(layout.footRows.begin(), {row.x, height - row.bottom(), row.width, row.height});
    }
    for (std::size_t i = 0; i < layout.columns.size(); ++i) {
        auto& lines = layout.columns[i].lines;
        if (!layout.footRows.empty())
            lines.resize(lines.size() - std::min(lines.size(), foot.taken()[i]));
        if (!layout.headRows.empty())
            lines.erase(lines.begin(),
                        lines.begin() + static_cast<std::ptrdiff_t>(std::min(lines.size(), head.taken()[i])));
    }
}

// The part of the page that a picture covers: what is solid when the white within letters is filled, or has large
// parts.
double pictureShare(const StraightPage& page) {
    const int gap = std::max(4, static_cast<int>(0.5 * page.xHeight)),
              size = std::max(20, static_cast<int>(3 * page.xHeight));
    // Strokes of a drawing, and rows of a halftone's dots, may have been taken for rules.
    const PixPtr all(page.rules ? pixOr(nullptr, page.ink.get(), page.rules.get()) : pixClone(page.ink.get()));
    const PixPtr closed(all ? pixCloseSafeBrick(nullptr, all.get(), gap, gap) : nullptr);
    const PixPtr solid(closed ? pixOpenBrick(nullptr, closed.get(), size, size) : nullptr);
    l_float32 share = 0;
    if (solid)
        pixForegroundFraction(solid.get(), &share);
    const double area = static_cast<double>(pixGetWidth(page.ink.get())) * pixGetHeight(page.ink.get());
    double large = 0;
    for (const PageBox& box : componentsOf(page.ink.get())) {
        if (box.height > 2 * size && box.width > 2 * size)
            large += static_cast<double>(box.width) * box.height;
    }
    return std::max(static_cast<double>(share), large / area);
}

PageLook lookOf(const StraightPage& page, const std::vector<PageBox>& letters, const PageLayout& layout) {
    std::size_t lines = 0;
    for (const TextColumn& column : layout.columns) {
        for (const LineBand& line : column.lines)
            lines += line.right - line.left > (column.right - column.left) / 2;
    }
    // The dots of a halftone are closer to each other than lines of letters.
    if (lines >= 15 && layout.linePitch > 1.5 * page.xHeight)
        return PageLook::Text;
    if (pictureShare(page) > 0.12)
        return PageLook::Plate;
    return letters.size() < 12 ? PageLook::Blank : PageLook::Text;
}

} // namespace

PageLayout layoutOf(const StraightPage& page) {
    PageLayout layout;
    if (!page.ink)
        return layout;
    const std::vector<PageBox> letters = lettersOf(page);
    layout.columns = columnsOf(page, letters);
    layout.linePitch = pitchOf(layout.columns);
    layout.look = lookOf(page, letters, layout);
    if (!layout.columns.empty() && layout.look != PageLook::Blank)
        findHeadAndFoot(page, layout);
    return layout;
}

PageBox topOf(const StraightPage& page, const PageLayout& layout) {
    if (!page.ink)
        return {};
    const int width = pixGetWidth(page.ink.get()), height = pixGetHeight(page.ink.get());
    if (layout.columns.empty())
        return {0, 0, width, height / 8};
    const int margin = static_cast<int>(1.2 * page.xHeight);
    int top = height, bottom = 0;
    if (!layout.headRows.empty()) {
        top = layout.headRows.front().y;
        bottom = layout.headRows.back().bottom();
    } else {
        for (const TextColumn& column : layout.columns) {
            if (!column.lines.empty())
                top = std::min(top, column.lines.front().top);
        }
        bottom = top + static_cast<int>(3 * layout.linePitch);
    }
    top = std::max(0, top - margin);
    return {layout.columns.front().left, top, layout.columns.back().right - layout.columns.front().left,
            std::min(height, bottom + margin) - top};
}

} // namespace velmarin
