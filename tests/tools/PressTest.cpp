#include "press/Press.h"

#include <random>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "press/Hyphenator.h"
#include "press/Pagination.h"
#include "text/FindReplace.h"

namespace velmarin {
namespace {

constexpr const char* english = "/usr/share/hyphen/hyph_en_US.dic";

Design design() {
    Design made;
    made.typeface = "Old Standard TT, IPAexMincho";
    made.hyphenation = english;
    return made;
}

double right(const FlowLine& line) {
    PangoRectangle extents;
    pango_layout_line_get_extents(line.line.get(), nullptr, &extents);
    return line.x + pango_units_to_double(extents.width);
}

TEST(Press, JustifiedLinesEndAtTheMargin) {
    std::mt19937 random(11);
    const std::vector<std::string> words{"a",       "of", "parchment", "twice-written", "<i>incomprehensible</i>",
                                         "writing,"};
    Press press(design());
    for (int round = 0; round < 60; ++round) {
        std::string text;
        for (std::size_t count = 1 + random() % 80; count > 0; --count)
            text += words[random() % words.size()] + " ";
        const auto lines = press.set({{Setting::Hanging, false, false, text}}, 0, "");
        for (std::size_t i = 0; i < lines.size(); ++i) {
            EXPECT_NEAR(lines[i].x, i == 0 ? 0 : design().body.em, 0.1) << "hanging indent";
            EXPECT_LE(right(lines[i]), design().columnWidth() + 0.1) << text;
            EXPECT_TRUE(i + 1 == lines.size() || right(lines[i]) >= design().columnWidth() - 0.1) << text;
        }
    }
}

TEST(Press, KanaBreakAnywhereButNotBeforeAClosingMark) {
    std::string text;
    for (int i = 0; i < 60; ++i)
        text += "かな。";
    Press press(design());
    const auto lines = press.set({{Setting::Hanging, false, false, text}}, 0, "");
    EXPECT_GT(lines.size(), 3U);
    for (const FlowLine& line : lines)
        EXPECT_NE(text.substr(static_cast<std::size_t>(line.line->start_index), 3), "。");
}

FlowLine flowLine(std::size_t article, bool opens, bool keep, unsigned leading = 10) {
    return {nullptr, 0, static_cast<double>(leading), 0, keep, opens, article};
}

TEST(Pagination, EveryLineIsPlacedOnceInOrderAndFits) {
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        std::vector<FlowLine> flow{flowLine(0, true, random() % 2 == 0)};
        for (std::size_t more = random() % 300; more > 0; --more) {
            const bool opens = random() % 4 == 0;
            flow.push_back(
                flowLine(flow.back().article + (opens ? 1 : 0), opens, opens && random() % 2 == 0, 8 + random() % 4));
        }
        const double height = 100;
        std::size_t next = 0;
        for (const Page& page : paginate(flow, height)) {
            ASSERT_FALSE(page.lines.empty());
            double last = 0;
            int column = -1;
            for (const SetLine& set : page.lines) {
                ASSERT_EQ(set.line, next++);
                if (std::exchange(column, set.column) != set.column) {
                    EXPECT_FALSE(set.line > 0 && flow[set.line - 1].keepWithNext) << "round " << round;
                    last = 0;
                }
                EXPECT_GT(set.baseline, last);
                EXPECT_LE(set.baseline, height + 1e-6);
                last = set.baseline;
            }
        }
        EXPECT_EQ(next, flow.size());
    }
}

TEST(Pagination, GuideWordsAreTheFirstAndLastThatOpenOnThePage) {
    std::vector<FlowLine> flow;
    for (std::size_t article = 0; article < 3; ++article)
        for (int line = 0; line < 20; ++line)
            flow.push_back(flowLine(article, line == 0, false));
    std::string guideWords;
    for (const Page& page : paginate(flow, 120))
        guideWords += std::to_string(page.firstArticle) + "-" + std::to_string(page.lastArticle) + " ";
    EXPECT_EQ(guideWords, "0-1 2-2 2-2 ") << "an article that only runs on counts if none opens";
}

TEST(Hyphenator, WordsAreDividedOutsideOfHeadwordsAndTags) {
    Hyphenator hyphenator(english);
    const std::pair<const char*, const char*> rows[] = {
        {"(Hyphenation, of—hyphenation", "(Hy-phen-ation, of—hy-phen-ation"},
        {"<i>hyphenation</i>", "<i>hy-phen-ation</i>"},
        {"<b>hyphenation</b> hyphenation", "<b>hyphenation</b> hy-phen-ation"},
        {"a &amp; b of", "a &amp; b of"},
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(ReplaceAllB(hyphenator.hyphenated(text), "\u00AD", "-"), expected);
    EXPECT_EQ(Hyphenator("").hyphenated("hyphenation"), "hyphenation");
    EXPECT_THROW(Hyphenator("/nonexistent"), std::runtime_error);
}

} // namespace
} // namespace velmarin
