#include "make_samples/Press.h"

#include <algorithm>
#include <cmath>

#include "text/StringRules.h"

namespace velmarin {

namespace {

/// Above an article, and above a stanza, in parts of the leading.
constexpr double articleSpace = 0.06;
constexpr double stanzaSpace = 0.4;
constexpr double initialSpace = 0.5;

constexpr int ruleThickness = 3;

} // namespace

Press::Press(const Design& design) : design_(design), fonts_(design.typeface), hyphenator_(design.hyphenation) {}

std::vector<FlowLine> Press::set(const std::vector<Paragraph>& paragraphs, std::size_t article) {
    LineBreaker breaker(fonts_, hyphenator_, design_.columnMeasure());
    std::vector<FlowLine> lines;
    for (const Paragraph& paragraph : paragraphs) {
        const std::size_t start = lines.size();
        if (paragraph.setting == Setting::Right && !lines.empty())
            lines.back().keepWithNext = true;
        for (Line& line : breaker.lines(paragraph)) {
            FlowLine placed;
            placed.line = std::move(line);
            placed.article = article;
            placed.opensArticle = lines.empty();
            if (lines.empty())
                placed.spaceBefore = articleSpace * design_.bodyLeading;
            else if (lines.size() == start && paragraph.gapBefore)
                placed.spaceBefore = stanzaSpace * design_.bodyLeading;
            lines.push_back(std::move(placed));
        }
        // Neither the first line of a paragraph alone at the foot of a column, nor its last at the head of one.
        if (lines.size() >= start + 2)
            lines[start].keepWithNext = lines[lines.size() - 2].keepWithNext = true;
    }
    return lines;
}

std::vector<FlowLine> Press::initial(const std::string& letter, std::size_t article) {
    FlowLine line;
    line.line = centred(Style::Roman, design_.initial, letter, true);
    line.line.leading = static_cast<float>(design_.initial * 1.02);
    line.spaceBefore = initialSpace * design_.bodyLeading;
    line.keepWithNext = true;
    line.article = article;
    FlowLine below;
    below.line.leading = static_cast<float>(design_.initial * 0.3);
    below.keepWithNext = true;
    below.article = article;
    return {line, below};
}

Line Press::centred(Style style, double size, const std::string& text, bool red) {
    const ShapedText& shaped = fonts_.shape(style, size, text);
    Line line;
    double x = (design_.columnWidth() - static_cast<double>(shaped.width)) / 2;
    for (const ShapedGlyph& glyph : shaped.glyphs) {
        line.glyphs.push_back({glyph.font, red, glyph.id, static_cast<float>(x) + glyph.dx, glyph.dy});
        x += static_cast<double>(glyph.advance);
    }
    return line;
}

double Press::widthOf(Style style, double size, const std::string& text) {
    return static_cast<double>(fonts_.shape(style, size, text).width);
}

void Press::printAt(Canvas& canvas, Style style, double size, const std::string& text, double x, double y, bool red) {
    std::vector<PlacedGlyph> glyphs;
    double at = 0;
    for (const ShapedGlyph& glyph : fonts_.shape(style, size, text).glyphs) {
        glyphs.push_back({glyph.font, red, glyph.id, static_cast<float>(at) + glyph.dx, glyph.dy});
        at += static_cast<double>(glyph.advance);
    }
    canvas.print(fonts_, glyphs, x, y);
}

void Press::printCentred(Canvas& canvas, Style style, double size, const std::string& text, double y, bool red) {
    printAt(canvas, style, size, text, (canvas.width() - widthOf(style, size, text)) / 2, y, red);
}

/// Cut by whole characters until it is no wider.
std::string Press::shortened(Style style, double size, std::string text, double width) {
    bool cut = false;
    while (!text.empty() && widthOf(style, size, text + (cut ? "…" : "")) > width) {
        do
            text.pop_back();
        while (!text.empty() && (static_cast<unsigned char>(text.back()) & 0xC0) == 0x80);
        while (!text.empty() && static_cast<unsigned char>(text.back()) >= 0xC0)
            text.pop_back();
        cut = true;
    }
    return cut ? text + "…" : text;
}

void Press::printHead(Canvas& canvas, const Head& head) {
    const double left = design_.sideMargin;
    const double right = design_.pageWidth - design_.sideMargin;
    const double y = design_.headBaseline;
    const double room = design_.textWidth() * 0.42;
    const std::string leftWord = shortened(Style::Bold, design_.head, Uppercase(head.left), room);
    printAt(canvas, Style::Bold, design_.head, leftWord, left, y);
    printCentred(canvas, Style::Roman, design_.head, head.middle, y);
    if (head.right != head.left) {
        const std::string rightWord = shortened(Style::Bold, design_.head, Uppercase(head.right), room);
        printAt(canvas, Style::Bold, design_.head, rightWord, right - widthOf(Style::Bold, design_.head, rightWord), y);
    }
    canvas.fill(static_cast<int>(left), static_cast<int>(y + design_.head * 0.45), design_.textWidth(), ruleThickness);
}

Canvas Press::page(const Page& page, const std::vector<FlowLine>& flow, const Head& head) {
    Canvas canvas(design_.pageWidth, design_.pageHeight,
                  design_.kind == PageKind::ColourJpeg || design_.kind == PageKind::ColourPng);
    printHead(canvas, head);
    double foot = 0;
    for (const SetLine& set : page.lines) {
        const double x = design_.sideMargin + set.column * (design_.columnWidth() + design_.gutter);
        canvas.print(fonts_, flow[set.line].line.glyphs, x, design_.textTop + set.baseline);
        foot = std::max(foot, set.baseline);
    }
    const int top = design_.textTop + 6;
    canvas.fill(design_.pageWidth / 2 - 1, top, 2, static_cast<int>(foot + design_.bodyLeading * 0.2) - 6);
    return canvas;
}

Canvas Press::titlePage(const Title& title) {
    Canvas canvas(design_.pageWidth, design_.pageHeight,
                  design_.kind == PageKind::ColourJpeg || design_.kind == PageKind::ColourPng);
    const int margin = design_.sideMargin;
    const int width = design_.pageWidth - 2 * margin;
    const int height = design_.pageHeight - 2 * margin;
    canvas.frame(margin, margin, width, height, 9);
    canvas.frame(margin + 18, margin + 18, width - 36, height - 36, 3, true);
    canvas.frame(margin + 27, margin + 27, width - 54, height - 54, 3);
    const double room = width * 0.8;
    double size = design_.pageWidth * 0.085;
    size *= std::min(1.0, room / std::max(1.0, widthOf(Style::Roman, size, title.name)));
    double y = design_.pageHeight * 0.27;
    printCentred(canvas, Style::Roman, size, title.name, y, true);
    const int rule = design_.pageWidth / 8;
    canvas.fill(design_.pageWidth / 2 - rule, static_cast<int>(y + size * 0.6), rule * 2, 4);
    canvas.fill(design_.pageWidth / 2 - rule / 2, static_cast<int>(y + size * 0.6) + 12, rule, 3);
    y += size * 1.5;
    const double subtitle = design_.pageWidth * 0.027;
    for (std::size_t i = 0; i < title.subtitle.size(); ++i) {
        printCentred(canvas, i % 2 == 0 ? Style::SmallCaps : Style::Italic, subtitle, title.subtitle[i], y);
        y += subtitle * 1.8;
    }
    printCentred(canvas, Style::Roman, design_.pageWidth * 0.07, "❦", design_.pageHeight * 0.66, true);
    const double imprint = design_.pageWidth * 0.0185;
    y = design_.pageHeight - margin - 90 - imprint * 1.5 * static_cast<double>(title.imprint.size());
    for (const std::string& line : title.imprint) {
        printCentred(canvas, Style::Roman, imprint, line, y);
        y += imprint * 1.5;
    }
    return canvas;
}

} // namespace velmarin
