#include <algorithm>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "make_samples/Faces.h"
#include "make_samples/FontSet.h"
#include "make_samples/Hyphenator.h"
#include "make_samples/LineBreaker.h"

namespace velmarin {
namespace {

class Typesetting : public ::testing::Test {
  protected:
    std::vector<Line> lines(Setting setting, const std::string& text, double width = 400) {
        TextMeasure measure;
        measure.width = width;
        return LineBreaker(fonts_, hyphenator_, measure).lines({setting, false, false, {{Style::Roman, text, false}}});
    }

    /// Where the ink of the last glyph begins plus its advance, to the nearest pixel or so.
    float rightEdge(const Line& line) {
        const PlacedGlyph& last = line.glyphs.back();
        const GlyphBitmap& bitmap = fonts_.bitmap(last.font, last.id, 0);
        return last.x + static_cast<float>(bitmap.left + bitmap.width);
    }

    FontSet fonts_{plainFace()};
    Hyphenator hyphenator_{hyphenation("en_US")};
};

TEST_F(Typesetting, LinesFillTheMeasureAndNeverLeaveIt) {
    std::mt19937 random(11);
    const std::vector<std::string> words{
        "a",        "of",    "parchment", "twice-written", "the", "incomprehensible", "scraped", "monastery—and",
        "writing,", "pumice"};
    for (int round = 0; round < 60; ++round) {
        std::string text;
        const std::size_t count = 1 + random() % 80;
        for (std::size_t i = 0; i < count; ++i)
            text += (i == 0 ? "" : " ") + words[random() % words.size()];
        const auto set = lines(Setting::Hanging, text, 640);
        ASSERT_FALSE(set.empty());
        for (std::size_t i = 0; i < set.size(); ++i) {
            EXPECT_NEAR(set[i].glyphs.front().x, i == 0 ? 0 : 33, 4) << "hanging indent";
            EXPECT_LE(rightEdge(set[i]), 644) << text;
            if (i + 1 < set.size()) {
                EXPECT_GE(rightEdge(set[i]), 634) << "justified: " << text;
            }
        }
    }
}

TEST_F(Typesetting, NoGlyphIsLostWhereLinesBreak) {
    const std::string text = "The erasures of ancient writings were usually carried on in monasteries of old.";
    std::size_t unbroken = lines(Setting::Verse, text, 10'000).at(0).glyphs.size();
    for (const double width : {300.0, 420.0, 700.0}) {
        std::size_t glyphs = 0;
        std::size_t count = 0;
        const ShapedText& hyphen = fonts_.shape(Style::Roman, 33, "-");
        for (const Line& line : lines(Setting::Hanging, text, width)) {
            const bool hyphenated = line.glyphs.back().id == hyphen.glyphs.front().id;
            glyphs += line.glyphs.size() - (hyphenated ? 1 : 0);
            ++count;
        }
        EXPECT_GT(count, 1U);
        EXPECT_EQ(glyphs, unbroken) << width;
    }
}

TEST_F(Typesetting, WhatCannotBeBrokenStandsAllTheSame) {
    EXPECT_EQ(lines(Setting::Hanging, "x " + std::string(60, 'W') + " y z", 200).size(), 3U);
    EXPECT_TRUE(lines(Setting::Hanging, "").empty());
    EXPECT_TRUE(lines(Setting::Hanging, "  ").empty());
    EXPECT_TRUE(lines(Setting::Hanging, "\U000F0000").empty()) << "no font has it";
    EXPECT_FALSE(lines(Setting::Hanging, "ab\xFF\xC3").empty()) << "not UTF-8";
}

TEST_F(Typesetting, KanaBreakAnywhereButNotBeforeAClosingMark) {
    const std::string stop = "。";
    std::string text;
    for (int i = 0; i < 12; ++i)
        text += "かな" + stop;
    const std::uint32_t mark = fonts_.shape(Style::Roman, 33, stop).glyphs.front().id;
    for (double width = 70; width < 300; width += 10) {
        const auto set = lines(Setting::Hanging, text, width);
        EXPECT_GT(set.size(), 1U);
        for (const Line& line : set)
            EXPECT_NE(line.glyphs.front().id, mark) << width;
    }
}

TEST_F(Typesetting, WordsAreDividedAsTheirLanguageDoes) {
    EXPECT_EQ(hyphenator_.places("hyphenation"), (std::vector<std::size_t>{2, 6}));
    EXPECT_EQ(hyphenator_.places("(hyphenation,"), (std::vector<std::size_t>{3, 7})) << "marks around it";
    EXPECT_EQ(hyphenator_.places("of—hyphenation"), (std::vector<std::size_t>{7, 11})) << "a dash parts words";
    EXPECT_TRUE(hyphenator_.places("well-known").empty());
    EXPECT_TRUE(hyphenator_.places("of").empty());
    Hyphenator german(hyphenation("de_DE"));
    const auto& places = german.places("Übersetzung");
    EXPECT_NE(std::find(places.begin(), places.end(), 5U), places.end()) << "Über-setzung, the Ü being two bytes";
}

} // namespace
} // namespace velmarin
