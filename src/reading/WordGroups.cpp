#include "reading/WordGroups.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace velmarin {

namespace {

constexpr std::size_t kMostLetters = 60;

// What is printed at one place of the row: the parts of a letter, with its accents.
struct Glyph {
    PageBox box;
    std::vector<PageBox> parts;
};

// A row of the page as it was cut out.
struct Strip {
    PixPtr grey;
    PixPtr ink;
    double capitalHeight = 0;
};

int middleOf(const PageBox& box) {
    return box.y + box.height / 2;
}

PageBox united(const PageBox& a, const PageBox& b) {
    const int x = std::min(a.x, b.x), y = std::min(a.y, b.y);
    return {x, y, std::max(a.right(), b.right()) - x, std::max(a.bottom(), b.bottom()) - y};
}

// The parts of the row's letters: neither dirt, nor rules, nor what belongs to the lines above and below.
std::vector<PageBox> partsOfRow(const Strip& strip, int top, int bottom, double letterHeight) {
    std::vector<PageBox> parts = componentsOf(strip.ink.get());
    const double slack = 0.35 * letterHeight;
    std::erase_if(parts, [&](const PageBox& box) {
        const bool outside = middleOf(box) < top - slack || middleOf(box) > bottom + slack;
        const bool speck = box.width < 0.14 * letterHeight || box.height < 0.12 * letterHeight;
        const bool rule = box.width > 4 * letterHeight && box.height < 0.5 * letterHeight;
        return outside || speck || rule || box.height > 3.5 * letterHeight;
    });
    return parts;
}

// Small parts far from any letter are dirt.
std::vector<Glyph> glyphsOf(std::vector<PageBox> parts) {
    std::ranges::sort(parts, {}, &PageBox::x);
    std::vector<Glyph> glyphs;
    for (const PageBox& part : parts) {
        if (!glyphs.empty() && part.x < glyphs.back().box.right() - std::min(part.width, glyphs.back().box.width) / 3) {
            glyphs.back().box = united(glyphs.back().box, part);
            glyphs.back().parts.push_back(part);
        } else {
            glyphs.push_back({part, {part}});
        }
    }
    return glyphs;
}

double capitalHeightOf(const std::vector<PageBox>& parts, double letterHeight) {
    std::vector<double> heights;
    for (const PageBox& part : parts) {
        if (part.height > 0.6 * letterHeight)
            heights.push_back(part.height);
    }
    std::ranges::sort(heights);
    return heights.empty() ? 0 : heights[heights.size() * 3 / 4];
}

using Glyphs = std::vector<Glyph>;

std::vector<Glyphs> partedByWhite(const Glyphs& glyphs, double capitalHeight) {
    std::vector<Glyphs> groups;
    for (const Glyph& glyph : glyphs) {
        if (groups.empty() || glyph.box.x - groups.back().back().box.right() > 1.7 * capitalHeight)
            groups.emplace_back();
        groups.back().push_back(glyph);
    }
    // A group without any letter of some size is dirt.
    std::erase_if(groups, [&](const Glyphs& group) {
        return std::ranges::none_of(group, [&](const Glyph& glyph) { return glyph.box.height > 0.5 * capitalHeight; });
    });
    return groups;
}

// The rise of the base line: the median of the slopes between letters that are some way apart.
double slopeOf(const Glyphs& group, double capitalHeight) {
    std::vector<const PageBox*> letters;
    for (const Glyph& glyph : group) {
        if (glyph.box.height > 0.6 * capitalHeight && glyph.box.height < 1.25 * capitalHeight)
            letters.push_back(&glyph.box);
    }
    while (letters.size() > kMostLetters) { // every other one: the pairs grow with the square
        for (std::size_t i = 0; 2 * i < letters.size(); ++i)
            letters[i] = letters[2 * i];
        letters.resize((letters.size() + 1) / 2);
    }
    std::vector<double> slopes;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        for (std::size_t j = i + 1; j < letters.size(); ++j) {
            const int distance = letters[j]->x - letters[i]->x;
            if (distance > 2 * capitalHeight)
                slopes.push_back(static_cast<double>(letters[j]->bottom() - letters[i]->bottom()) / distance);
        }
    }
    return slopes.size() < 3 ? 0 : std::clamp(medianOf(std::move(slopes)), -0.06, 0.06);
}

// The part of each white between letters that is to be taken out, so that spaced letters become a word.
double shiftOf(const Glyphs& group, double capitalHeight) {
    std::vector<double> gaps;
    for (std::size_t i = 1; i < group.size(); ++i)
        gaps.push_back(group[i].box.x - group[i - 1].box.right());
    const double usual = medianOf(gaps);
    return gaps.size() < 3 || usual < 0.33 * capitalHeight ? 0 : usual - 0.14 * capitalHeight;
}

// The letters of a group on white paper, without what is between and around them.
PixPtr drawn(const Strip& strip, const Glyphs& group, const PageBox& box, int margin, double shift) {
    const int shrunk = static_cast<int>(shift * static_cast<double>(group.size() - 1));
    PixPtr grey(pixCreate(box.width - shrunk + 2 * margin, box.height + 2 * margin, 8));
    if (!grey)
        return nullptr;
    pixSetAll(grey.get());
    const int halo = std::max(2, margin / 6);
    for (std::size_t i = 0; i < group.size(); ++i) {
        const int left = margin - box.x - static_cast<int>(shift * static_cast<double>(i)), top = margin - box.y;
        for (const PageBox& part : group[i].parts) {
            const PageBox wide{part.x - halo, part.y - halo, part.width + 2 * halo, part.height + 2 * halo};
            pixRasterop(grey.get(), wide.x + left, wide.y + top, wide.width, wide.height, PIX_SRC & PIX_DST,
                        strip.grey.get(), wide.x, wide.y);
        }
    }
    return grey;
}

PixPtr leveled(PixPtr grey, double slope) {
    if (!grey || std::abs(slope) < 0.002)
        return grey;
    return PixPtr(pixRotateAMGray(grey.get(), static_cast<l_float32>(-std::atan(slope)), 255));
}

Strip stripOf(const Picture& picture, const StraightPage& page, const PageBox& box) {
    Strip strip;
    strip.grey = cutStraight(picture, page.straightening, box);
    if (!strip.grey)
        return strip;
    const int window = static_cast<int>(2 * page.xHeight * page.straightening.reduction);
    strip.ink =
        picture.depth() == 1 ? PixPtr(pixThresholdToBinary(strip.grey.get(), 128)) : inkOf(strip.grey.get(), window);
    return strip;
}

} // namespace

std::vector<WordGroup> wordGroupsOf(const Picture& picture, const StraightPage& page, const PageBox& row, RowEnd end) {
    const int margin = static_cast<int>(1.2 * page.xHeight);
    const PageBox cut{row.x - margin, row.y - margin, row.width + 2 * margin, row.height + 2 * margin};
    Strip strip = stripOf(picture, page, cut);
    if (!strip.ink)
        return {};
    const double scale = page.straightening.reduction, letterHeight = page.xHeight * scale;
    const int inset = static_cast<int>(margin * scale);
    std::vector<PageBox> parts = partsOfRow(strip, inset, pixGetHeight(strip.ink.get()) - inset, letterHeight);
    if (end == RowEnd::Sharp)
        std::erase_if(parts, [&](const PageBox& part) { return part.x > inset + row.width * scale; });
    strip.capitalHeight = capitalHeightOf(parts, letterHeight);
    std::vector<WordGroup> groups;
    for (const Glyphs& glyphs : partedByWhite(glyphsOf(std::move(parts)), strip.capitalHeight)) {
        PageBox box = glyphs.front().box;
        for (const Glyph& glyph : glyphs)
            box = united(box, glyph.box);
        const double shift = shiftOf(glyphs, strip.capitalHeight);
        PixPtr grey = leveled(drawn(strip, glyphs, box, static_cast<int>(strip.capitalHeight / 2), shift),
                              slopeOf(glyphs, strip.capitalHeight));
        if (!grey)
            continue;
        const auto onStraight = [&](double length) { return static_cast<int>(std::lround(length / scale)); };
        groups.push_back(
            {{cut.x + onStraight(box.x), cut.y + onStraight(box.y), onStraight(box.width), onStraight(box.height)},
             std::move(grey),
             strip.capitalHeight});
    }
    return groups;
}

} // namespace velmarin
