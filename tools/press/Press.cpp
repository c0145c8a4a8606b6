#include "press/Press.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <stdexcept>
#include <utility>

#include <fontconfig/fontconfig.h>
#include <leptonica/allheaders.h>
#include <pango/pangocairo.h>
#include <pango/pangofc-fontmap.h>

#include "press/Text.h"
#include "text/FindReplace.h"
#include "text/LetterCase.h"

namespace velmarin {

namespace fs = std::filesystem;
using Line = std::shared_ptr<PangoLayoutLine>;
using Layout = std::shared_ptr<PangoLayout>;

namespace {

// Space above an article, above a stanza and above the letter that opens a part of the alphabet, in parts of the
// leading.
constexpr double kArticleSpace = 0.06;
constexpr double kStanzaSpace = 0.4;
constexpr double kInitialSpace = 0.5;

/// The indents of a paragraph's first line and of its others, in ems, for each Setting.
constexpr std::array<std::pair<double, double>, 4> kIndents{{{0, 1}, {2, 1}, {1.6, 3.2}, {0, 0}}};

/// The widths at which a paragraph may be broken into lines, as ems added to that of the column. Each gives other
/// breaks; the first without a loose line is taken, or else the best. In lines that are too long the blanks shrink.
constexpr std::array kExtraWidths{0.25, 0.5, -0.5, -1.0, -2.0};
/// By how much a blank may grow or shrink before it catches the eye, in ems.
constexpr double kLooseBlank = 0.25;
constexpr double kTightBlank = 0.09;
/// A pixel of a 1-bit page is black from this much ink (of 255): less than half, because ink spreads on paper.
constexpr unsigned char kBlackFrom = 100;

constexpr int kJpegQuality = 78;

/// The fonts of the packages in tools/packages.txt and no others, so that every machine sets the same pages. EB
/// Garamond has a bold face of few letters; like Mincho, which has none, it is thickened instead.
constexpr const char* kFontSetup = R"(<fontconfig>
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

std::shared_ptr<PangoContext> newContext() {
    FcConfig* fonts = FcConfigCreate();
    if (FcConfigParseAndLoadFromMemory(fonts, reinterpret_cast<const FcChar8*>(kFontSetup), FcTrue) == FcFalse ||
        FcConfigBuildFonts(fonts) == FcFalse)
        throw std::runtime_error("cannot read the fonts");
    PangoFontMap* map = pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT);
    pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(map), fonts);
    FcConfigDestroy(fonts); // the map has a reference of its own
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

/// A line of a layout, and the glyphs that take part in its justification: its blanks, or all if it has none.
struct LooseLine {
    PangoLayoutLine* line = nullptr;
    double x = 0;
    int missing = 0; ///< to the right margin, in Pango's units; negative for a line that is too long
    std::vector<PangoGlyphInfo*> blanks;
};

std::vector<PangoGlyphInfo*> blanksOf(const PangoLayoutLine* line, bool all) {
    std::vector<PangoGlyphInfo*> found;
    for (GSList* node = line->runs; node != nullptr; node = node->next) {
        const auto* run = static_cast<PangoGlyphItem*>(node->data);
        const char* text = pango_layout_get_text(line->layout) + run->item->offset;
        for (int i = 0; i < run->glyphs->num_glyphs; ++i)
            if (PangoGlyphInfo& glyph = run->glyphs->glyphs[i];
                glyph.geometry.width > 0 && (all || text[run->glyphs->log_clusters[i]] == ' '))
                found.push_back(&glyph);
    }
    return found.empty() && !all ? blanksOf(line, true) : found;
}

/// The lines of a layout, which keeps them. Pango's own justification does not shrink blanks, and it comes before the
/// hyphen is added and the blank at the end dropped, so that one line in ten misses the margin.
std::vector<LooseLine> looseLines(PangoLayout* layout, double width) {
    std::vector<LooseLine> lines;
    const std::unique_ptr<PangoLayoutIter, decltype(&pango_layout_iter_free)> at(pango_layout_get_iter(layout),
                                                                                 pango_layout_iter_free);
    do {
        PangoRectangle extents;
        pango_layout_iter_get_line_extents(at.get(), nullptr, &extents);
        PangoLayoutLine* line = pango_layout_iter_get_line(at.get());
        const int missing = units(width) - extents.x - extents.width;
        const bool isLast = pango_layout_iter_at_last_line(at.get()) != FALSE;
        lines.push_back(
            {line, pango_units_to_double(extents.x), isLast ? std::min(missing, 0) : missing, blanksOf(line, false)});
    } while (pango_layout_iter_next_line(at.get()) != FALSE);
    return lines;
}

/// How uneven the blanks of a paragraph would be: below 1 if no line is too loose or too tight.
double unevenness(const std::vector<LooseLine>& lines, double em) {
    double worst = 0;
    for (const LooseLine& loose : lines) {
        const double each = loose.missing / static_cast<double>(loose.blanks.size()) / units(em);
        worst = std::max(worst, std::abs(each) / (each > 0 ? kLooseBlank : kTightBlank));
    }
    return worst;
}

/// The width of the first line.
double widthOf(const Layout& layout) {
    PangoRectangle extents;
    pango_layout_line_get_extents(pango_layout_get_line_readonly(layout.get(), 0), nullptr, &extents);
    return pango_units_to_double(extents.width);
}

/// Darkens the paper towards two opposite edges, `width` or `height` apart.
void shade(cairo_t* context, double width, double height) {
    cairo_pattern_t* gradient = cairo_pattern_create_linear(0, 0, width, height);
    for (int step = 0; step <= 40; ++step)
        cairo_pattern_add_color_stop_rgba(gradient, step / 40.0, 0.45, 0.3, 0,
                                          0.1 * std::pow(std::abs(step / 20.0 - 1), 6));
    cairo_set_source(context, gradient);
    cairo_paint(context);
    cairo_pattern_destroy(gradient);
}

/// The paper of one page and the ink on it. Draws in pixels from the top left.
class Sheet {
  public:
    explicit Sheet(const Design& design)
        : design_(design), bilevel_(design.kind == PageKind::BilevelTiff),
          surface_(cairo_image_surface_create(bilevel_ ? CAIRO_FORMAT_A8 : CAIRO_FORMAT_RGB24, design.pageWidth,
                                              design.pageHeight),
                   &cairo_surface_destroy),
          context_(cairo_create(surface_.get()), &cairo_destroy) {
        const bool toned = design.kind == PageKind::ColorJpeg;
        cairo_set_source_rgb(context(), toned ? 0.965 : 1, toned ? 0.933 : 1, toned ? 0.855 : 1);
        if (!bilevel_)
            cairo_paint(context());
        if (toned) {
            shade(context(), design.pageWidth, 0);
            shade(context(), 0, design.pageHeight);
        }
        if (bilevel_)
            cairo_set_operator(context(), CAIRO_OPERATOR_ADD); // much faster than OVER, and the same in one color
        useInk(false);
    }

    cairo_t* context() const { return context_.get(); }
    void useInk(bool red) const {
        cairo_set_source_rgb(context(), red ? 0.675 : 0.094, red ? 0.141 : 0.078, red ? 0.11 : 0.07);
    }
    void fill(double x, double y, double width, double height) const {
        cairo_rectangle(context(), x, y, width, height);
        cairo_fill(context());
    }
    /// Draws the outline of the rectangle that is `edge` away from the edges of the paper.
    void frame(double edge, double thickness) const {
        const double middle = edge + thickness / 2;
        cairo_set_line_width(context(), thickness);
        cairo_rectangle(context(), middle, middle, design_.pageWidth - 2 * middle, design_.pageHeight - 2 * middle);
        cairo_stroke(context());
    }
    /// Draws the first line of a text on a baseline; `anchor` 0 puts its left end at x, 0.5 its middle, 1 its right
    /// end.
    void print(const Layout& text, double x, double baseline, double anchor) const {
        cairo_move_to(context(), x - anchor * widthOf(text), baseline);
        pango_cairo_show_layout_line(context(), pango_layout_get_line_readonly(text.get(), 0));
    }
    /// Writes the page with its resolution. Throws std::runtime_error naming a file that cannot be written.
    void write(const fs::path& path) const;

  private:
    const Design& design_;
    bool bilevel_;
    std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface_;
    std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context_;
};

void Sheet::write(const fs::path& path) const {
    cairo_surface_flush(surface_.get());
    const auto destroy = [](Pix* pix) { pixDestroy(&pix); };
    const std::unique_ptr<Pix, decltype(destroy)> pix(
        pixCreate(design_.pageWidth, design_.pageHeight, bilevel_ ? 1 : 32), destroy);
    if (!pix)
        throw std::runtime_error("not enough memory for a page");
    l_uint32* line = pixGetData(pix.get());
    const unsigned char* ink = cairo_image_surface_get_data(surface_.get());
    for (int y = 0; y < design_.pageHeight; ++y, line += pixGetWpl(pix.get())) {
        for (int x = 0; x < design_.pageWidth; ++x)
            if (!bilevel_) // cairo keeps a color in the low 24 bits of a word, Leptonica in the high ones
                line[x] = reinterpret_cast<const l_uint32*>(ink)[x] << 8;
            else if (ink[x] >= kBlackFrom)
                line[x / 32] |= 0x80000000U >> (x % 32);
        ink += cairo_image_surface_get_stride(surface_.get());
    }
    pixSetResolution(pix.get(), design_.dpi, design_.dpi);
    const bool failed = design_.kind == PageKind::ColorJpeg
                            ? pixWriteJpeg(path.c_str(), pix.get(), kJpegQuality, 0) != 0
                            : pixWrite(path.c_str(), pix.get(), bilevel_ ? IFF_TIFF_G4 : IFF_PNG) != 0;
    if (failed)
        throw std::runtime_error("cannot write " + path.string());
}

} // namespace

Press::Press(const Design& design) : design_(design), hyphenator_(design.hyphenation), context_(newContext()) {}

Layout Press::layout(std::string markup, double size, double width) const {
    if (design_.boldSpacing > 0) {
        const std::string spacing = std::to_string(units(design_.boldSpacing * size));
        markup = ReplaceAllB(markup, "<b>", "<span weight=\"bold\" letter_spacing=\"" + spacing + "\">");
        markup = ReplaceAllB(markup, "</b>", "</span>");
    }
    Layout made(pango_layout_new(context_.get()), g_object_unref);
    PangoFontDescription* font = pango_font_description_from_string((design_.typeface + ",").c_str());
    pango_font_description_set_absolute_size(font, size * PANGO_SCALE);
    pango_layout_set_font_description(made.get(), font);
    pango_font_description_free(font);
    pango_layout_set_width(made.get(), width > 0 ? units(width) : -1);
    pango_layout_set_wrap(made.get(), PANGO_WRAP_WORD_CHAR);
    pango_layout_set_markup(made.get(), markup.data(), static_cast<int>(markup.size()));
    return made;
}

std::vector<FlowLine> Press::linesOf(const Paragraph& paragraph) const {
    const auto [em, leading] = paragraph.small ? design_.small : design_.body;
    const bool justified = paragraph.setting == Setting::Hanging || paragraph.setting == Setting::Indented;
    const auto [first, rest] = kIndents.at(static_cast<std::size_t>(paragraph.setting));
    const double left = std::min(first, rest) * em;
    const double width = design_.columnWidth() - left;
    const std::string markup = justified ? hyphenator_.hyphenated(paragraph.markup) : paragraph.markup;
    Layout best;
    std::vector<LooseLine> bestLines;
    for (const double extra : kExtraWidths) {
        const Layout made = layout(markup, em, width + (justified ? extra * em : 0));
        pango_layout_set_indent(made.get(), units((first - rest) * em));
        if (paragraph.setting == Setting::Right)
            pango_layout_set_alignment(made.get(), PANGO_ALIGN_RIGHT);
        auto lines = looseLines(made.get(), width);
        if (!best || unevenness(lines, em) < unevenness(bestLines, em)) {
            best = made;
            bestLines = std::move(lines);
        }
        if (!justified || unevenness(bestLines, em) < 1)
            break;
    }
    std::vector<FlowLine> lines;
    for (const LooseLine& loose : bestLines) {
        if (justified)
            for (PangoGlyphInfo* blank : loose.blanks)
                blank->geometry.width += loose.missing / static_cast<int>(loose.blanks.size());
        lines.push_back({Line(best, loose.line), left + loose.x, leading});
    }
    // Keeps a paragraph's first line from the foot of a column, and its last from the head of one.
    if (lines.size() >= 2)
        lines.front().keepWithNext = lines[lines.size() - 2].keepWithNext = true;
    if (paragraph.gapBefore)
        lines.front().spaceBefore = kStanzaSpace * design_.body.leading;
    return lines;
}

std::vector<FlowLine> Press::linesOf(const std::string& letter) const {
    const Layout made = layout(inRed(escaped(letter)), design_.initial);
    std::vector<FlowLine> lines(2);
    lines[0].line = Line(made, pango_layout_get_line(made.get(), 0));
    lines[0].x = (design_.columnWidth() - widthOf(made)) / 2;
    lines[0].leading = design_.initial * 1.02;
    lines[0].spaceBefore = kInitialSpace * design_.body.leading;
    lines[1].leading = design_.initial * 0.3;
    lines[0].keepWithNext = lines[1].keepWithNext = true;
    return lines;
}

std::vector<FlowLine> Press::set(const std::vector<Paragraph>& paragraphs, std::size_t article,
                                 const std::string& letter) const {
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
    lines[opening].spaceBefore = kArticleSpace * design_.body.leading;
    for (FlowLine& line : lines)
        line.article = article;
    return lines;
}

void Press::printPage(const fs::path& path, const Page& page, const std::vector<FlowLine>& flow,
                      const Head& head) const {
    const Sheet sheet(design_);
    const auto guide = [&](const std::string& word, double x, double anchor) {
        const Layout made = layout(bold(Uppercase(word)), design_.head, design_.textWidth() * 0.42);
        pango_layout_set_ellipsize(made.get(), PANGO_ELLIPSIZE_END);
        sheet.print(made, x, design_.headBaseline, anchor);
    };
    guide(head.left, design_.sideMargin, 0);
    sheet.print(layout(escaped(head.middle), design_.head), design_.pageWidth / 2.0, design_.headBaseline, 0.5);
    if (head.right != head.left)
        guide(head.right, design_.pageWidth - design_.sideMargin, 1);
    sheet.fill(design_.sideMargin, design_.headBaseline + design_.head * 0.45, design_.textWidth(), 3);
    double foot = 0;
    for (const SetLine& set : page.lines) {
        const FlowLine& line = flow[set.line];
        const double x = design_.sideMargin + set.column * (design_.columnWidth() + design_.gutter) + line.x;
        cairo_move_to(sheet.context(), x, design_.textTop + set.baseline);
        if (line.line)
            pango_cairo_show_layout_line(sheet.context(), line.line.get());
        foot = std::max(foot, set.baseline);
    }
    for (int column = 1; column < design_.columns; ++column) {
        const int left = design_.sideMargin + column * (design_.columnWidth() + design_.gutter);
        sheet.fill(left - design_.gutter / 2 - 1, design_.textTop + 6, 2, foot + design_.body.leading * 0.2 - 6);
    }
    sheet.write(path);
}

void Press::printTitlePage(const fs::path& path, const Title& title) const {
    const Sheet sheet(design_);
    const double width = design_.pageWidth;
    double y = design_.pageHeight * 0.27;
    const auto centered = [&](const std::string& markup, double size, double leading) {
        const double fit = std::min(1.0, design_.textWidth() * 0.8 / widthOf(layout(markup, size)));
        sheet.print(layout(markup, size * fit), width / 2, y, 0.5);
        y += leading;
    };
    sheet.frame(design_.sideMargin, 9);
    sheet.frame(design_.sideMargin + 27, 3);
    sheet.useInk(true);
    sheet.frame(design_.sideMargin + 18, 3);
    centered(escaped(title.name), width * 0.085, width * 0.12);
    sheet.useInk(false);
    sheet.fill(width * 3 / 8, y - width * 0.07, width / 4, 4);
    sheet.fill(width * 7 / 16, y - width * 0.07 + 12, width / 8, 3);
    for (std::size_t i = 0; i < title.subtitle.size(); ++i)
        centered(i % 2 == 0 ? smallCapitals(title.subtitle[i]) : italic(title.subtitle[i]), width * 0.027,
                 width * 0.0486);
    y = design_.pageHeight * 0.66;
    centered(inRed("❦"), width * 0.07, 0);
    y = design_.pageHeight - design_.sideMargin - 90 - width * 0.028 * static_cast<double>(title.imprint.size());
    for (const std::string& line : title.imprint)
        centered(escaped(line), width * 0.0185, width * 0.028);
    sheet.write(path);
}

} // namespace velmarin
