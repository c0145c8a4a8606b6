#include "make_scans/Typesetter.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <numbers>

#include <pango/pangocairo.h>

#include "making/KeyRule.h"
#include "press/Text.h"
#include "text/LetterCase.h"
#include "text/Utf8.h"

namespace velmarin {

namespace {

constexpr double kDesignDpi = 300;

Design scaled(Design design, double by) {
    for (int* length : {&design.pageWidth, &design.pageHeight, &design.sideMargin, &design.headBaseline,
                        &design.textTop, &design.textBottom, &design.gutter})
        *length = static_cast<int>(std::lround(*length * by));
    for (double* length : {&design.body.em, &design.body.leading, &design.small.em, &design.small.leading, &design.head,
                           &design.initial})
        *length *= by;
    design.dpi = static_cast<int>(std::lround(design.dpi * by));
    return design;
}

ScanBook scaled(ScanBook book, int dpi) {
    book.book.design = scaled(book.book.design, dpi / kDesignDpi);
    return book;
}

/// For texts of one line in the size of the head.
Design ofHead(Design design) {
    design.columns = 1;
    design.body.em = design.head;
    design.hyphenation.clear();
    return design;
}

/// The letter under which a headword is listed.
std::string letterOf(const ScanBook& book, const Article& article) {
    const KeyRule rule = KeyRule::parse("", book.alike).value_or(KeyRule());
    const std::string word = indexSearchWord(rule.keyOf(article.key), book.book.order);
    return word.empty() ? "" : word.substr(0, decodeUtf8(word, 0).length);
}

/// An engraving: an oval of fine lines.
void drawPlate(cairo_t* context, double width, double height) {
    cairo_set_line_width(context, width / 900);
    for (int i = 1; i < 90; ++i) {
        const double half = width * 0.36 * std::sin(std::numbers::pi * i / 90);
        const double y = height * (0.15 + 0.7 * i / 90);
        cairo_move_to(context, width / 2 - half, y);
        cairo_curve_to(context, width / 2 - half / 2, y + height * 0.02, width / 2 + half / 2, y - height * 0.02,
                       width / 2 + half, y);
        cairo_stroke(context);
        cairo_arc(context, width / 2, height / 2, width * 0.003 * i, 0, std::numbers::pi);
        cairo_stroke(context);
    }
}

} // namespace

Typesetter::Typesetter(ScanBook book, int dpi)
    : book_(scaled(std::move(book), dpi)), press_(book_.book.design), headPress_(ofHead(book_.book.design)) {
    const auto& articles = book_.book.articles;
    std::string letter;
    std::size_t from = 0;
    for (std::size_t i = 0; i < articles.size(); ++i) {
        const std::string next = letterOf(book_, articles[i]);
        if (next != letter && book_.layout.letterPages && i > from) {
            addPart(from, i, letter);
            from = i;
        }
        letter = next;
    }
    if (from < articles.size())
        addPart(from, articles.size(), letter);
}

void Typesetter::addPart(std::size_t from, std::size_t to, const std::string& letter) {
    const Design& design = book_.book.design;
    std::vector<FlowLine> flow;
    std::string last = book_.layout.letterPages ? "" : letterOf(book_, book_.book.articles[from]);
    for (std::size_t i = from; i < to; ++i) {
        const std::string next = book_.layout.letterPages ? letter : letterOf(book_, book_.book.articles[i]);
        std::ranges::move(press_.set(book_.book.articles[i].paragraphs, i, next != last ? next : ""),
                          std::back_inserter(flow));
        last = next;
    }
    parts_.push_back(paginate(flow, design.textBottom - design.textTop, design.columns));
    flows_.push_back(std::move(flow));
    for (std::size_t page = 0; page < parts_.back().size(); ++page)
        addPage(parts_.size() - 1, page, book_.layout.letterPages && page == 0);
}

void Typesetter::addPage(std::size_t part, std::size_t page, bool opensLetter) {
    const ScanLayout& layout = book_.layout;
    if (layout.plateEvery > 0 && places_.size() % layout.plateEvery == layout.plateEvery - 1) {
        places_.push_back({.plate = true});
        printed_.push_back({.plate = true});
    }
    const Page& set = parts_[part][page];
    const std::vector<FlowLine>& flow = flows_[part];
    const auto plates = static_cast<int>(std::ranges::count(printed_, true, &PrintedPage::plate));
    PrintedPage made{.number = std::to_string(static_cast<int>(places_.size()) - plates + layout.firstNumber)};
    for (const SetLine& line : set.lines)
        if (flow[line.line].opensArticle)
            made.headwords.push_back(book_.book.articles[flow[line.line].article].key);
    if (layout.head != HeadStyle::None && !opensLetter) {
        const auto guide = [&](std::size_t article) {
            const std::string& word = book_.book.articles[article].guide;
            return layout.capitals ? Uppercase(word) : word;
        };
        if (layout.head != HeadStyle::Right)
            made.first = guide(layout.running ? flow[set.lines.front().line].article : set.firstArticle);
        if (layout.head != HeadStyle::First && layout.head != HeadStyle::Left)
            made.last = guide(set.lastArticle);
        for (int column = 1; layout.head == HeadStyle::Columns && column + 1 < book_.book.design.columns; ++column) {
            const auto opening = std::ranges::find_if(
                set.lines, [&](const SetLine& line) { return line.column == column && flow[line.line].opensArticle; });
            made.between.push_back(opening == set.lines.end() ? "" : guide(flow[opening->line].article));
        }
    }
    places_.push_back({part, page});
    printed_.push_back(std::move(made));
}

void Typesetter::drawText(cairo_t* context, const std::string& markup, double x, double baseline, double anchor) const {
    const auto lines = headPress_.set({{.setting = Setting::Verse, .markup = markup}}, 0, "");
    PangoRectangle extents;
    pango_layout_line_get_extents(lines.front().line.get(), nullptr, &extents);
    cairo_move_to(context, x - anchor * pango_units_to_double(extents.width), baseline);
    pango_cairo_show_layout_line(context, lines.front().line.get());
}

void Typesetter::drawHead(cairo_t* context, const PrintedPage& page, bool recto) const {
    const Design& design = book_.book.design;
    const ScanLayout& layout = book_.layout;
    const double left = design.sideMargin;
    const double right = design.pageWidth - design.sideMargin;
    const double middle = design.pageWidth / 2.0;
    const double baseline =
        layout.headAtFoot ? design.textBottom + design.head * 1.9 : static_cast<double>(design.headBaseline);
    const auto guide = [&](const std::string& word, double x, double anchor) {
        if (!word.empty())
            drawText(context, layout.bold ? bold(word) : escaped(word), x, baseline, anchor);
    };
    if (layout.head == HeadStyle::Joined)
        guide(page.last.empty() || page.last == page.first ? page.first : page.first + "–" + page.last, middle, 0.5);
    else if (layout.head == HeadStyle::First)
        guide(page.first, recto ? right : left, recto ? 1 : 0);
    else {
        guide(page.first, left, 0);
        guide(page.last == page.first ? "" : page.last, right, 1);
        for (std::size_t i = 0; i < page.between.size(); ++i)
            guide(page.between[i], left + static_cast<double>(i + 1) * (design.columnWidth() + design.gutter), 0);
    }
    if (layout.title)
        drawText(context, "DICTIONARY OF WORDS", middle, baseline, 0.5);
    const bool outer = layout.outerNumber;
    const double number =
        layout.head == HeadStyle::Columns || layout.title ? design.headBaseline - design.head * 1.3 : baseline;
    drawText(context, page.number,
             !outer  ? middle
             : recto ? right
                     : left,
             layout.numberAtFoot ? design.textBottom + design.head * 1.9 : number,
             !outer  ? 0.5
             : recto ? 1
                     : 0);
    if (layout.rule && !(page.first.empty() && page.last.empty())) {
        cairo_rectangle(context, left, layout.headAtFoot ? baseline - design.head * 1.1 : baseline + design.head * 0.45,
                        right - left, design.dpi / 100.0);
        cairo_fill(context);
    }
}

void Typesetter::drawColumns(cairo_t* context, const Place& place) const {
    const Design& design = book_.book.design;
    const double step = design.columnWidth() + design.gutter;
    double foot = 0;
    for (const SetLine& set : parts_[place.part][place.page].lines) {
        const FlowLine& line = flows_[place.part][set.line];
        foot = std::max(foot, set.baseline);
        if (!line.line)
            continue;
        cairo_move_to(context, design.sideMargin + set.column * step + line.x, design.textTop + set.baseline);
        pango_cairo_show_layout_line(context, line.line.get());
    }
    for (double y = 5 * design.body.leading; book_.layout.lineNumbers && y < foot; y += 5 * design.body.leading)
        drawText(context, "<small>" + std::to_string(static_cast<int>(y / design.body.leading)) + "</small>",
                 design.sideMargin * 0.75, design.textTop + y, 1);
    for (int column = 1; column < design.columns && book_.layout.columnRules; ++column) {
        cairo_rectangle(context, design.sideMargin + column * step - design.gutter / 2.0, design.textTop,
                        design.dpi / 150.0, foot);
        cairo_fill(context);
    }
}

Raster Typesetter::inkOf(std::size_t page) const {
    const Design& design = book_.book.design;
    const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
        cairo_image_surface_create(CAIRO_FORMAT_A8, design.pageWidth, design.pageHeight), &cairo_surface_destroy);
    const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context(cairo_create(surface.get()), &cairo_destroy);
    cairo_set_operator(context.get(), CAIRO_OPERATOR_ADD);
    const Place& place = places_.at(page);
    if (place.plate) {
        drawPlate(context.get(), design.pageWidth, design.pageHeight);
    } else {
        drawHead(context.get(), printed_[page], page % 2 == 0);
        drawColumns(context.get(), place);
    }
    cairo_surface_flush(surface.get());
    Raster ink(design.pageWidth, design.pageHeight);
    const int stride = cairo_image_surface_get_stride(surface.get());
    for (int y = 0; y < ink.height; ++y)
        std::memcpy(ink.row(y), cairo_image_surface_get_data(surface.get()) + std::ptrdiff_t{y} * stride,
                    static_cast<std::size_t>(ink.width));
    return ink;
}

} // namespace velmarin
