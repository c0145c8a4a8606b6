#include "make_samples/Press.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include <fontconfig/fontconfig.h>
#include <pango/pangocairo.h>
#include <pango/pangofc-fontmap.h>

#include "make_samples/Text.h"
#include "text/FindReplace.h"
#include "text/LetterCase.h"

namespace velmarin {

namespace fs = std::filesystem;

namespace {

/// Above an article, and above a stanza, in parts of the leading.
constexpr double articleSpace = 0.06;
constexpr double stanzaSpace = 0.4;
constexpr double initialSpace = 0.5;

/// How much too long a line may be, in ems, before its blanks shrink.
constexpr double mostShrink = 0.25;

constexpr int ruleThickness = 3;

/// The fonts of the packages in tools/packages.txt and no others, so that every machine sets the same pages. EB
/// Garamond has a bold face of few letters; like Mincho, which has none, it is thickened instead.
constexpr const char* fontSetup = R"(<fontconfig>
  <dir>/usr/share/fonts/opentype/ebgaramond</dir>
  <dir>/usr/share/fonts/opentype/ipaexfont-mincho</dir>
  <dir>/usr/share/fonts/opentype/linux-libertine</dir>
  <dir>/usr/share/fonts/truetype/fonts-oldstandard</dir>
  <cachedir>/var/cache/fontconfig</cachedir>
  <cachedir prefix="xdg">fontconfig</cachedir>
  <selectfont><rejectfont><glob>*/EBGaramond12-Bold.otf</glob></rejectfont></selectfont>
  <match target="font">
    <test name="weight" compare="less_eq"><const>medium</const></test>
    <test target="pattern" name="weight" compare="more"><const>medium</const></test>
    <edit name="embolden" mode="assign"><bool>true</bool></edit>
    <edit name="weight" mode="assign"><const>bold</const></edit>
  </match>
</fontconfig>)";

FcConfig* fonts() {
    static FcConfig* const config = [] {
        FcConfig* made = FcConfigCreate();
        if (FcConfigParseAndLoadFromMemory(made, reinterpret_cast<const FcChar8*>(fontSetup), FcTrue) == FcFalse ||
            FcConfigBuildFonts(made) == FcFalse)
            throw std::runtime_error("cannot read the fonts");
        return made;
    }();
    return config;
}

std::shared_ptr<PangoContext> newContext() {
    PangoFontMap* map = pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT);
    pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(map), fonts());
    std::shared_ptr<PangoContext> context(pango_font_map_create_context(map), g_object_unref);
    g_object_unref(map);
    pango_context_set_round_glyph_positions(context.get(), FALSE);
    pango_context_set_language(context.get(), pango_language_from_string("en"));
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context.get(), options);
    cairo_font_options_destroy(options);
    return context;
}

int units(double pixels) {
    return pango_units_from_double(pixels);
}

/// Spreads what a line lacks over its blanks, or takes from them what it has too much. Pango does not shrink blanks,
/// and it justifies a line before it adds the hyphen and drops the blank at its end, so that one line in ten misses the
/// margin.
void fitLine(PangoLayoutLine* line, int missing) {
    std::vector<PangoGlyphInfo*> blanks;
    for (GSList* at = line->runs; at != nullptr; at = at->next) {
        const auto* run = static_cast<PangoGlyphItem*>(at->data);
        const char* text = pango_layout_get_text(line->layout) + run->item->offset;
        for (int i = 0; i < run->glyphs->num_glyphs; ++i)
            if (text[run->glyphs->log_clusters[i]] == ' ' && run->glyphs->glyphs[i].geometry.width > 0)
                blanks.push_back(&run->glyphs->glyphs[i]);
    }
    for (PangoGlyphInfo* blank : blanks)
        blank->geometry.width += missing / static_cast<int>(blanks.size());
}

/// The lines of a layout, which they keep. Justified ones are corrected.
std::vector<FlowLine> flowLines(const std::shared_ptr<PangoLayout>& layout, double left, double width, double leading) {
    std::vector<FlowLine> lines;
    const bool justified = pango_layout_get_justify(layout.get()) != FALSE;
    PangoLayoutIter* at = pango_layout_get_iter(layout.get());
    do {
        PangoRectangle extents;
        pango_layout_iter_get_line_extents(at, nullptr, &extents);
        PangoLayoutLine* line = pango_layout_iter_get_line(at);
        const int missing = units(width) - extents.x - extents.width;
        if (justified && (missing < 0 || pango_layout_iter_at_last_line(at) == FALSE))
            fitLine(line, missing);
        lines.push_back(
            {std::shared_ptr<PangoLayoutLine>(layout, line), left + pango_units_to_double(extents.x), leading});
    } while (pango_layout_iter_next_line(at) != FALSE);
    pango_layout_iter_free(at);
    return lines;
}

/// Of the first line.
double widthOf(PangoLayout* layout) {
    PangoRectangle extents;
    pango_layout_line_get_extents(pango_layout_get_line_readonly(layout, 0), nullptr, &extents);
    return pango_units_to_double(extents.width);
}

void fill(const Sheet& sheet, double x, double y, double width, double height) {
    cairo_rectangle(sheet.context(), x, y, width, height);
    cairo_fill(sheet.context());
}

/// The outline of a rectangle `inset` inside the margins.
void frame(const Sheet& sheet, const Design& design, double inset, double thickness) {
    const double edge = design.sideMargin + inset + thickness / 2;
    cairo_set_line_width(sheet.context(), thickness);
    cairo_rectangle(sheet.context(), edge, edge, design.pageWidth - 2 * edge, design.pageHeight - 2 * edge);
    cairo_stroke(sheet.context());
}

} // namespace

Press::Press(const Design& design)
    : design_(design), hyphenator_(design.hyphenation), context_(newContext()), sheet_(design) {}

Press::Layout Press::layout(std::string markup, double size, double width) {
    if (design_.boldSpacing > 0) {
        const std::string spacing = std::to_string(units(design_.boldSpacing * size));
        markup = ReplaceAllB(markup, "<b>", "<span weight=\"bold\" letter_spacing=\"" + spacing + "\">");
        markup = ReplaceAllB(markup, "</b>", "</span>");
    }
    Layout made(pango_layout_new(context_.get()), g_object_unref);
    PangoFontDescription* font = pango_font_description_new();
    pango_font_description_set_family(font, design_.typeface.c_str());
    pango_font_description_set_absolute_size(font, size * PANGO_SCALE);
    pango_layout_set_font_description(made.get(), font);
    pango_font_description_free(font);
    pango_layout_set_width(made.get(), width > 0 ? units(width) : -1);
    pango_layout_set_markup(made.get(), markup.data(), static_cast<int>(markup.size()));
    return made;
}

std::vector<FlowLine> Press::linesOf(const Paragraph& paragraph) {
    const double em = paragraph.small ? design_.small : design_.body;
    const bool justified = paragraph.setting == Setting::Hanging || paragraph.setting == Setting::Indented;
    // Of the first line, and of the others.
    const auto [first, rest] = paragraph.setting == Setting::Hanging    ? std::pair(0.0, em)
                               : paragraph.setting == Setting::Indented ? std::pair(2 * em, em)
                               : paragraph.setting == Setting::Verse    ? std::pair(1.6 * em, 3.2 * em)
                                                                        : std::pair(0.0, 0.0);
    const double left = std::min(first, rest);
    const double width = design_.columnWidth() - left;
    const Layout made = layout(justified ? hyphenator_.hyphenated(paragraph.markup) : paragraph.markup, em,
                               width + (justified ? mostShrink * em : 0));
    pango_layout_set_indent(made.get(), units(first - rest));
    pango_layout_set_wrap(made.get(), PANGO_WRAP_WORD_CHAR);
    pango_layout_set_justify(made.get(), justified ? TRUE : FALSE);
    if (paragraph.setting == Setting::Right)
        pango_layout_set_alignment(made.get(), PANGO_ALIGN_RIGHT);
    auto lines = flowLines(made, left, width, paragraph.small ? design_.smallLeading : design_.bodyLeading);
    // Neither the first line of a paragraph alone at the foot of a column, nor its last at the head of one.
    if (lines.size() >= 2)
        lines.front().keepWithNext = lines[lines.size() - 2].keepWithNext = true;
    if (paragraph.gapBefore)
        lines.front().spaceBefore = stanzaSpace * design_.bodyLeading;
    return lines;
}

std::vector<FlowLine> Press::linesOf(const std::string& letter) {
    const Layout made = layout(inRed(escaped(letter)), design_.initial, design_.columnWidth());
    pango_layout_set_alignment(made.get(), PANGO_ALIGN_CENTER);
    auto lines = flowLines(made, 0, design_.columnWidth(), design_.initial * 1.02);
    lines.front().spaceBefore = initialSpace * design_.bodyLeading;
    lines.emplace_back().leading = design_.initial * 0.3;
    lines[0].keepWithNext = lines[1].keepWithNext = true;
    return lines;
}

std::vector<FlowLine> Press::set(const std::vector<Paragraph>& paragraphs, std::size_t article,
                                 const std::string& letter) {
    std::vector<FlowLine> lines;
    if (!letter.empty())
        lines = linesOf(letter);
    const std::size_t opening = lines.size();
    for (const Paragraph& paragraph : paragraphs) {
        if (paragraph.setting == Setting::Right && lines.size() > opening)
            lines.back().keepWithNext = true;
        std::ranges::move(linesOf(paragraph), std::back_inserter(lines));
    }
    lines.at(opening).opensArticle = true;
    lines[opening].spaceBefore = articleSpace * design_.bodyLeading;
    for (FlowLine& line : lines)
        line.article = article;
    return lines;
}

void Press::print(const Layout& text, double x, double baseline, double anchor) const {
    cairo_move_to(sheet_.context(), x - anchor * widthOf(text.get()), baseline);
    pango_cairo_show_layout_line(sheet_.context(), pango_layout_get_line_readonly(text.get(), 0));
}

void Press::printHead(const Head& head) {
    const double left = design_.sideMargin;
    const double right = design_.pageWidth - design_.sideMargin;
    const double y = design_.headBaseline;
    const auto guide = [&](const std::string& word, double x, double anchor) {
        const Layout made = layout(bold(Uppercase(word)), design_.head, design_.textWidth() * 0.42);
        pango_layout_set_ellipsize(made.get(), PANGO_ELLIPSIZE_END);
        print(made, x, y, anchor);
    };
    guide(head.left, left, 0);
    print(layout(escaped(head.middle), design_.head), design_.pageWidth / 2.0, y, 0.5);
    if (head.right != head.left)
        guide(head.right, right, 1);
    fill(sheet_, left, y + design_.head * 0.45, design_.textWidth(), ruleThickness);
}

void Press::printPage(const fs::path& path, const Page& page, const std::vector<FlowLine>& flow, const Head& head) {
    sheet_.clear();
    printHead(head);
    double foot = 0;
    for (const SetLine& set : page.lines) {
        const FlowLine& line = flow[set.line];
        const double x = design_.sideMargin + set.column * (design_.columnWidth() + design_.gutter) + line.x;
        cairo_move_to(sheet_.context(), x, design_.textTop + set.baseline);
        if (line.line)
            pango_cairo_show_layout_line(sheet_.context(), line.line.get());
        foot = std::max(foot, set.baseline);
    }
    const int rule = design_.pageWidth / 2 - 1;
    fill(sheet_, rule, design_.textTop + 6, 2, foot + design_.bodyLeading * 0.2 - 6);
    sheet_.write(path);
}

void Press::printTitlePage(const fs::path& path, const Title& title) {
    sheet_.clear();
    const double width = design_.pageWidth;
    const double centre = width / 2;
    frame(sheet_, design_, 0, 9);
    frame(sheet_, design_, 27, 3);
    sheet_.useRed(true);
    frame(sheet_, design_, 18, 3);
    double size = width * 0.085;
    size *= std::min(1.0, design_.textWidth() * 0.8 / widthOf(layout(escaped(title.name), size).get()));
    double y = design_.pageHeight * 0.27;
    print(layout(escaped(title.name), size), centre, y, 0.5);
    print(layout("❦", width * 0.07), centre, design_.pageHeight * 0.66, 0.5);
    sheet_.useRed(false);
    fill(sheet_, centre - width / 8, y + size * 0.6, width / 4, 4);
    fill(sheet_, centre - width / 16, y + size * 0.6 + 12, width / 8, 3);
    y += size * 1.5;
    for (std::size_t i = 0; i < title.subtitle.size(); ++i, y += width * 0.0486) {
        const std::string& line = title.subtitle[i];
        print(layout(i % 2 == 0 ? smallCapitals(line) : italic(line), width * 0.027), centre, y, 0.5);
    }
    const double imprint = width * 0.0185;
    y = design_.pageHeight - design_.sideMargin - 90 - imprint * 1.5 * static_cast<double>(title.imprint.size());
    for (const std::string& line : title.imprint) {
        print(layout(escaped(line), imprint), centre, y, 0.5);
        y += imprint * 1.5;
    }
    sheet_.write(path);
}

} // namespace velmarin
