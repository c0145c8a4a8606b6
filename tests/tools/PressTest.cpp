#include "make_samples/Press.h"

#include <random>
#include <string>

#include <gtest/gtest.h>

#include "make_samples/Hyphenator.h"

/// fontconfig keeps a list of its own until the end.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig";
}

namespace velmarin {
namespace {

constexpr const char* english = "/usr/share/hyphen/hyph_en_US.dic";

Design design(const char* typeface = "Old Standard TT, IPAexMincho") {
    Design made;
    made.typeface = typeface;
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
    const std::vector<std::string> words{
        "a",       "of",  "parchment", "twice-written",    "the",    "<i>incomprehensible</i>",
        "scraped", "and", "writing,",  "<b>monastery</b>", "pumice", "an"};
    Press press(design());
    for (int round = 0; round < 60; ++round) {
        std::string text;
        for (std::size_t count = 1 + random() % 80; count > 0; --count)
            text += words[random() % words.size()] + " ";
        const auto lines = press.set({{Setting::Hanging, false, false, text}}, 0, "");
        for (std::size_t i = 0; i < lines.size(); ++i) {
            EXPECT_NEAR(lines[i].x, i == 0 ? 0 : design().body, 0.1) << "hanging indent";
            EXPECT_LE(right(lines[i]), design().columnWidth() + 0.1) << text;
            if (i + 1 < lines.size()) {
                EXPECT_GE(right(lines[i]), design().columnWidth() - 0.1) << text;
            }
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

TEST(Hyphenator, WordsAreDividedOutsideOfHeadwordsAndTags) {
    Hyphenator hyphenator(english);
    const std::pair<const char*, const char*> rows[] = {
        {"hyphenation", "hy-phen-ation"},
        {"(Hyphenation,", "(Hy-phen-ation,"},
        {"of—hyphenation", "of—hy-phen-ation"},
        {"<i>hyphenation</i>", "<i>hy-phen-ation</i>"},
        {"<b>hyphenation</b> hyphenation", "<b>hyphenation</b> hy-phen-ation"},
        {"a &amp; b", "a &amp; b"},
        {"of", "of"},
    };
    for (const auto& [text, expected] : rows) {
        std::string found = hyphenator.hyphenated(text);
        for (std::size_t at = found.find("\u00AD"); at != std::string::npos; at = found.find("\u00AD"))
            found.replace(at, 2, "-");
        EXPECT_EQ(found, expected);
    }
    EXPECT_EQ(Hyphenator("").hyphenated("hyphenation"), "hyphenation");
    EXPECT_THROW(Hyphenator("/nonexistent"), std::runtime_error);
}

} // namespace
} // namespace velmarin
