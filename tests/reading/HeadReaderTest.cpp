#include "reading/HeadReader.h"

#include "DrawnPage.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velmarin {
namespace {

std::vector<std::string> textsOf(const PageText& text) {
    std::vector<std::string> texts;
    for (const TextLine& line : text.lines) {
        for (const TextWord& word : line.words)
            texts.push_back(word.text);
    }
    return texts;
}

class HeadReaderTest : public testing::Test {
  protected:
    void SetUp() override {
        const Result opened = reader.open({"eng"});
        ASSERT_TRUE(opened) << opened.failure().message();
    }

    HeadReader reader;
};

using Texts = std::vector<std::string>;

TEST_F(HeadReaderTest, ReadsGuideWordsAndNumberWhereTheyAre) {
    const DrawnPage drawn{.columns = 3, .head = {"HARBOR", "217", "HARVEST"}, .ruled = true, .skew = 1.5};
    const PageReading reading = reader.read("p.tif", draw(drawn), nullptr);
    EXPECT_EQ(reading.page, "p.tif");
    EXPECT_EQ(textsOf(reading.head), (Texts{"HARBOR", "217", "HARVEST"}));
    EXPECT_FALSE(reading.fromTextLayer);
    for (const TextWord& word : reading.head.lines.at(0).words) {
        EXPECT_GT(word.confidence, 0.8) << word.text;
        EXPECT_GE(word.box.x, reading.headStrip.x) << word.text;
        EXPECT_LE(word.box.right(), reading.headStrip.right()) << word.text;
    }
    // Turned clockwise, the right word is lower on the page.
    EXPECT_GT(reading.head.lines[0].words[2].box.y, reading.head.lines[0].words[0].box.y + 10);
}

TEST_F(HeadReaderTest, TakesTheTextLayerForTheWordsItHas) {
    const Picture picture = draw({.columns = 2, .head = {"HARBOR", "217", "HARVEST"}, .ruled = true});
    const TextWord left{"Harbour", {30, 33, 60, 10}, 0.7}, right{"Harveft", {420, 33, 50, 10}},
        body{"bench", {100, 200, 30, 8}};
    PageText layer{picture.Width() / 2, picture.Height() / 2, {{{body}, {}}, {{right, left}, {}}}};
    const PageReading reading = reader.read("p.tif", picture, &layer, EntryWords::Never);
    EXPECT_TRUE(reading.fromTextLayer);
    ASSERT_EQ(textsOf(reading.head), (Texts{"Harbour", "Harveft"}));
    EXPECT_EQ(reading.head.lines[0].words[0].box.x, 60);
    EXPECT_EQ(reading.head.lines[0].words[0].confidence, 0.7);

    layer.lines.pop_back();
    const PageReading recognized = reader.read("p.tif", picture, &layer, EntryWords::Never);
    EXPECT_FALSE(recognized.fromTextLayer);
    EXPECT_EQ(textsOf(recognized.head), (Texts{"HARBOR", "217", "HARVEST"}));
}

TEST_F(HeadReaderTest, ReadsFirstWordsOfEntriesIfThereIsNoHead) {
    const Picture picture = draw({.columns = 2});
    const PageReading reading = reader.read("p.tif", picture, nullptr);
    EXPECT_TRUE(reading.head.lines.empty());
    ASSERT_EQ(reading.entryStarts.size(), 2u);
    ASSERT_EQ(reading.entryStarts[0].size(), 3u);
    for (const auto& column : reading.entryStarts) {
        for (const TextLine& line : column)
            EXPECT_LT((line.box.x - 50) % 440, 20) << "an indented line was taken";
    }
    EXPECT_TRUE(reader.read("p.tif", picture, nullptr, EntryWords::Never).entryStarts.empty());
}

TEST_F(HeadReaderTest, NeverFailsOnOddPages) {
    for (const Picture& picture :
         {Picture(), Picture::make(1, 1, 1), Picture::make(40, 3000, 8), Picture::make(700, 900, 32)})
        EXPECT_TRUE(textsOf(reader.read("p", picture, nullptr, EntryWords::Always).head).empty());
}

TEST(HeadReader, NamesThePackageOfMissingData) {
    HeadReader reader;
    const Result opened = reader.open({"eng", "xyz_old"});
    ASSERT_FALSE(opened);
    EXPECT_NE(opened.failure().reason.find("\"tesseract-ocr-xyz-old\""), std::string::npos) << opened.failure().reason;
    const PageReading reading = reader.read("p", draw({.head = {"HARBOR", "HARVEST"}, .ruled = true}), nullptr);
    EXPECT_TRUE(reading.head.lines.empty());
    EXPECT_FALSE(reading.headStrip.empty());
    EXPECT_FALSE(reader.open({}));
    EXPECT_TRUE(std::ranges::count(HeadReader::installedLanguages(), "eng"));
}

} // namespace
} // namespace velmarin
