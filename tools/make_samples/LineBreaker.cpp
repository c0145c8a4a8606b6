#include "make_samples/LineBreaker.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "make_samples/TextPieces.h"

namespace velmarin {

namespace {

/// A blank, in parts of the em.
constexpr double blankWidth = 0.25;
constexpr double blankStretch = 0.15;
constexpr double blankShrink = 0.085;
/// How far kana that touch may be moved apart.
constexpr double kanaStretch = 0.06;

constexpr double hyphenPenalty = 60;
constexpr double twoHyphensDemerits = 4000;
constexpr double lastWordPartDemerits = 6000;
constexpr double loosestRatio = 1000;
/// More than the loosest line can have.
constexpr double overfullDemerits = 1e24;

/// A stretch of glyphs that no blank divides.
struct Box {
    std::vector<PlacedGlyph> glyphs; ///< x from the box's left edge
    double width = 0;
    double blankAfter = 0;
    double stretchAfter = 0;
    double shrinkAfter = 0;
    /// Where it may be divided: the first glyph of the next line, the width before it, and the hyphen to put in.
    struct Division {
        std::size_t glyph = 0;
        double width = 0;
        std::optional<PlacedGlyph> hyphen;
        double hyphenWidth = 0;
    };
    std::vector<Division> divisions;
};

bool isIdeographic(char32_t c) {
    return (c >= 0x3000 && c <= 0x30FF) || (c >= 0x3400 && c <= 0x9FFF) || (c >= 0xFF00 && c <= 0xFF60);
}

/// Marks and small kana that never open a line.
bool mayOpenLine(char32_t c) {
    static constexpr std::u32string_view never =
        U"、。，．・：；？！」』）】〕ーぁぃぅぇぉっゃゅょァィゥェォッャュョ々";
    return never.find(c) == std::u32string_view::npos;
}

bool mayCloseLine(char32_t c) {
    return c != U'「' && c != U'『' && c != U'（' && c != U'【' && c != U'〔';
}

/// Fills boxes from the spans of a paragraph.
class BoxMaker {
  public:
    BoxMaker(FontSet& fonts, Hyphenator& hyphenator, double size) : fonts_(fonts), hyphenator_(hyphenator), em_(size) {}

    void add(const Span& span) {
        const std::string_view text = span.text;
        std::size_t start = 0;
        std::size_t at = 0;
        while (at < text.size()) {
            const std::size_t before = at;
            const char32_t c = nextCodePoint(text, at);
            if (c == ' ') {
                addPart(span, text.substr(start, before - start));
                endBox(blankWidth, blankStretch, blankShrink);
                start = at;
            } else if (at < text.size() && isIdeographic(c)) {
                std::size_t after = at;
                const char32_t next = nextCodePoint(text, after);
                if (next != ' ' && mayOpenLine(next) && mayCloseLine(c)) {
                    addPart(span, text.substr(start, at - start));
                    endBox(0, kanaStretch, 0);
                    start = at;
                }
            }
        }
        addPart(span, text.substr(start));
    }

    std::vector<Box> take() {
        endBox(0, 0, 0);
        if (!boxes_.empty())
            boxes_.back().blankAfter = boxes_.back().stretchAfter = boxes_.back().shrinkAfter = 0;
        return std::move(boxes_);
    }

  private:
    void endBox(double blank, double stretch, double shrink) {
        if (box_.glyphs.empty())
            return;
        box_.blankAfter = blank * em_;
        box_.stretchAfter = stretch * em_;
        box_.shrinkAfter = shrink * em_;
        boxes_.push_back(std::move(box_));
        box_ = {};
    }

    void addPart(const Span& span, std::string_view part) {
        if (part.empty())
            return;
        const ShapedText& shaped = fonts_.shape(span.style, em_, part);
        const bool divisible = span.style == Style::Roman || span.style == Style::Italic;
        const auto& places = divisible ? hyphenator_.places(part) : none_;
        auto place = places.begin();
        double x = box_.width;
        std::uint32_t lastCluster = 0;
        for (const ShapedGlyph& glyph : shaped.glyphs) {
            while (place != places.end() && *place < glyph.cluster)
                ++place;
            if (glyph.cluster != lastCluster && x > 0) {
                if (place != places.end() && *place == glyph.cluster)
                    divide(span, x, true);
                else if (divisible && isDash(part, glyph.cluster))
                    divide(span, x, false);
            }
            lastCluster = glyph.cluster;
            box_.glyphs.push_back({glyph.font, span.red, glyph.id, static_cast<float>(x) + glyph.dx, glyph.dy});
            x += static_cast<double>(glyph.advance);
        }
        box_.width = x;
    }

    /// A dash ends at `offset`, and the line may end there too.
    static bool isDash(std::string_view part, std::size_t offset) {
        if (offset >= 3 && part.substr(offset - 3, 3) == "—")
            return !part.substr(offset).starts_with("\u00A0");
        return offset >= 3 && part[offset - 1] == '-' && part[offset - 2] != '-' && offset + 2 < part.size();
    }

    void divide(const Span& span, double x, bool withHyphen) {
        Box::Division division{box_.glyphs.size(), x, std::nullopt, 0};
        if (withHyphen) {
            const ShapedText& hyphen = fonts_.shape(span.style, em_, "-");
            if (!hyphen.glyphs.empty()) {
                const ShapedGlyph& glyph = hyphen.glyphs.front();
                division.hyphen = PlacedGlyph{glyph.font, span.red, glyph.id, 0, 0};
                division.hyphenWidth = static_cast<double>(hyphen.width);
            }
        }
        box_.divisions.push_back(division);
    }

    FontSet& fonts_;
    Hyphenator& hyphenator_;
    double em_;
    const std::vector<std::size_t> none_;
    Box box_;
    std::vector<Box> boxes_;
};

/// A place where a line may end.
struct Break {
    std::size_t box = 0;
    const Box::Division* division = nullptr; ///< none: after the box
    /// Sums from the paragraph's start up to the end of a line that ends here, and to the start of the next.
    double endWidth = 0, stretch = 0, shrink = 0;
    double startWidth = 0, startStretch = 0, startShrink = 0;
    double demerits = std::numeric_limits<double>::infinity();
    std::size_t previous = 0;
    double ratio = 0;
};

std::vector<Break> possibleBreaks(const std::vector<Box>& boxes) {
    std::vector<Break> breaks(1);
    double width = 0;
    double stretch = 0;
    double shrink = 0;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const Box& box = boxes[i];
        for (const auto& division : box.divisions) {
            Break place;
            place.box = i;
            place.division = &division;
            place.endWidth = width + division.width + division.hyphenWidth;
            place.startWidth = width + division.width;
            place.stretch = place.startStretch = stretch;
            place.shrink = place.startShrink = shrink;
            breaks.push_back(place);
        }
        Break place;
        place.box = i;
        place.endWidth = width + box.width;
        place.stretch = stretch;
        place.shrink = shrink;
        width += box.width + box.blankAfter;
        stretch += box.stretchAfter;
        shrink += box.shrinkAfter;
        place.startWidth = width;
        place.startStretch = stretch;
        place.startShrink = shrink;
        breaks.push_back(place);
    }
    return breaks;
}

struct Indents {
    double first = 0;
    double rest = 0;
};

Indents indentsOf(Setting setting, double em) {
    switch (setting) {
    case Setting::Hanging:
        return {0, em};
    case Setting::Indented:
        return {2 * em, em};
    case Setting::Verse:
        return {1.6 * em, 3.2 * em};
    case Setting::Right:
    case Setting::Centred:
        break;
    }
    return {};
}

/// How good a line from `from` to `to` is: its ratio of stretch (at most that) and demerits, or nothing where it does
/// not fit.
std::optional<std::pair<double, double>> lineCost(const Break& from, const Break& to, double width, bool justified,
                                                  bool isLast, double em) {
    const double slack = width - (to.endWidth - from.startWidth);
    const double stretch = to.stretch - from.startStretch;
    const double shrink = to.shrink - from.startShrink;
    double ratio = 0;
    if (slack < 0) {
        if (shrink <= 0 || -slack > shrink)
            return std::nullopt;
        ratio = slack / shrink;
    } else if (isLast) {
        ratio = 0;
    } else if (!justified) {
        ratio = slack / (6 * em);
    } else {
        ratio = slack / std::max(stretch, 0.02 * em);
    }
    const double badness = 100 * std::pow(std::min(std::abs(ratio), loosestRatio), 3);
    double demerits = std::pow(10 + badness, 2);
    if (to.division != nullptr) {
        const double penalty = to.division->hyphen ? hyphenPenalty : hyphenPenalty / 4;
        demerits += penalty * penalty * 10;
        if (from.division != nullptr)
            demerits += twoHyphensDemerits;
    }
    if (isLast && from.division != nullptr)
        demerits += lastWordPartDemerits;
    return std::pair(ratio, demerits);
}

void takeIfBetter(std::vector<Break>& breaks, std::size_t from, std::size_t to, double demerits, double ratio) {
    if (breaks[from].demerits + demerits >= breaks[to].demerits)
        return;
    breaks[to].demerits = breaks[from].demerits + demerits;
    breaks[to].previous = from;
    breaks[to].ratio = ratio;
}

/// The indices of the chosen breaks, in order.
std::vector<std::size_t> chooseBreaks(std::vector<Break>& breaks, const Indents& indents, double width, bool justified,
                                      double em) {
    const double widest = width - std::min(indents.first, indents.rest);
    breaks[0].demerits = 0;
    for (std::size_t to = 1; to < breaks.size(); ++to) {
        const bool isLast = to + 1 == breaks.size();
        bool tried = false;
        for (std::size_t from = to; from-- > 0;) {
            if (!std::isfinite(breaks[from].demerits))
                continue;
            const double available = width - (from == 0 ? indents.first : indents.rest);
            const auto cost = lineCost(breaks[from], breaks[to], available, justified, isLast, em);
            if (cost)
                takeIfBetter(breaks, from, to, cost->second, cost->first);
            else if (!tried) // A box wider than the column has to stand all the same.
                takeIfBetter(breaks, from, to, overfullDemerits, -1);
            else if (!lineCost(breaks[from], breaks[to], widest, justified, isLast, em))
                break; // and from further back it is longer still
            tried = true;
        }
    }
    std::vector<std::size_t> chosen;
    for (std::size_t at = breaks.size() - 1; at != 0; at = breaks[at].previous)
        chosen.push_back(at);
    std::reverse(chosen.begin(), chosen.end());
    return chosen;
}

/// The glyphs from one break to the next, with the blanks set by `ratio`; returns the width too.
double fillLine(Line& line, const std::vector<Box>& boxes, const Break& from, bool fromStart, const Break& to,
                double left, double ratio) {
    double x = left;
    std::size_t box = fromStart ? 0 : from.division != nullptr ? from.box : from.box + 1;
    std::size_t firstGlyph = !fromStart && from.division != nullptr ? from.division->glyph : 0;
    double skipped = !fromStart && from.division != nullptr ? from.division->width : 0;
    for (; box <= to.box; ++box) {
        const Box& content = boxes[box];
        const bool divided = box == to.box && to.division != nullptr;
        const std::size_t lastGlyph = divided ? to.division->glyph : content.glyphs.size();
        for (std::size_t i = firstGlyph; i < lastGlyph; ++i) {
            PlacedGlyph glyph = content.glyphs[i];
            glyph.x += static_cast<float>(x - skipped);
            line.glyphs.push_back(glyph);
        }
        x += (divided ? to.division->width : content.width) - skipped;
        if (divided && to.division->hyphen) {
            PlacedGlyph hyphen = *to.division->hyphen;
            hyphen.x = static_cast<float>(x);
            line.glyphs.push_back(hyphen);
            x += to.division->hyphenWidth;
        }
        if (box != to.box)
            x += content.blankAfter + ratio * (ratio < 0 ? content.shrinkAfter : content.stretchAfter);
        firstGlyph = 0;
        skipped = 0;
    }
    return x - left;
}

} // namespace

std::vector<Line> LineBreaker::lines(const Paragraph& paragraph) {
    const double em = paragraph.small ? measure_.small : measure_.body;
    BoxMaker maker(fonts_, hyphenator_, em);
    for (const Span& span : paragraph.spans)
        maker.add(span);
    const std::vector<Box> boxes = maker.take();
    std::vector<Line> lines;
    if (boxes.empty())
        return lines;
    const Indents indents = indentsOf(paragraph.setting, em);
    const bool justified = paragraph.setting == Setting::Hanging || paragraph.setting == Setting::Indented;
    std::vector<Break> breaks = possibleBreaks(boxes);
    std::size_t from = 0;
    for (const std::size_t to : chooseBreaks(breaks, indents, measure_.width, justified, em)) {
        const double left = from == 0 ? indents.first : indents.rest;
        const double ratio = justified || breaks[to].ratio < 0 ? breaks[to].ratio : 0;
        Line line;
        line.leading = static_cast<float>(paragraph.small ? measure_.smallLeading : measure_.bodyLeading);
        const double width = fillLine(line, boxes, breaks[from], from == 0, breaks[to], left, ratio);
        double shift = 0;
        if (paragraph.setting == Setting::Right)
            shift = measure_.width - width;
        else if (paragraph.setting == Setting::Centred)
            shift = (measure_.width - width) / 2;
        for (PlacedGlyph& glyph : line.glyphs)
            glyph.x += static_cast<float>(shift);
        lines.push_back(std::move(line));
        from = to;
    }
    return lines;
}

} // namespace velmarin
