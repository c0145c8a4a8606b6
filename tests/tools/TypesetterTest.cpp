#include "make_scans/Typesetter.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "make_scans/ScanFiles.h"
#include "press/Text.h"
#include "support/TempFolder.h"
#include "support/Tree.h"
#include "view/Decoders.h"

namespace velmarin {
namespace {

/// A book of `count` articles of a line or two, "a000" and so on, the last half of them in b.
ScanBook smallBook(int count, const ScanLayout& layout) {
    ScanBook made;
    made.layout = layout;
    made.book.design = {.typeface = "Linux Libertine O",
                        .pageWidth = 600,
                        .pageHeight = 500,
                        .sideMargin = 40,
                        .headBaseline = 60,
                        .textTop = 90,
                        .textBottom = 470,
                        .columns = 3,
                        .gutter = 20};
    for (int i = 0; i < count; ++i) {
        const std::string word = (i < count / 2 ? "a" : "b") + std::to_string(100 + i);
        made.book.articles.push_back({word, word, "", {{.markup = bold(word) + " means a word"}}});
    }
    return made;
}

/// "first-last" of each page.
std::string headsOf(const Typesetter& typesetter) {
    std::string heads;
    for (const PrintedPage& page : typesetter.pages())
        heads += page.plate ? "plate " : page.first + "-" + page.last + " ";
    return heads;
}

TEST(Typesetter, TruthNamesWhatBeginsOnEachPage) {
    const Typesetter typesetter(smallBook(60, {.plateEvery = 2}), 300);
    std::vector<std::string> all;
    for (const PrintedPage& page : typesetter.pages()) {
        if (page.plate)
            continue;
        ASSERT_FALSE(page.headwords.empty());
        EXPECT_EQ(page.first, page.headwords.front());
        EXPECT_EQ(page.last, page.headwords.back());
        all.insert(all.end(), page.headwords.begin(), page.headwords.end());
    }
    ASSERT_EQ(all.size(), 60U) << "every article begins on one page";
    EXPECT_TRUE(std::ranges::is_sorted(all));
    EXPECT_TRUE(typesetter.pages().at(1).plate);
    EXPECT_EQ(typesetter.pages().at(2).number, "2") << "plates have no number";
}

TEST(Typesetter, HeadsFollowTheLayout) {
    const auto heads = [](const ScanLayout& layout) { return headsOf(Typesetter(smallBook(8, layout), 300)); };
    EXPECT_EQ(heads({.head = HeadStyle::None}).find_first_not_of("- "), std::string::npos);
    EXPECT_EQ(heads({.head = HeadStyle::First, .capitals = true}).substr(0, 6), "A100- ");
    EXPECT_EQ(heads({.letterPages = true}), "- - ") << "pages on which a letter begins have no head";
}

TEST(Typesetter, InkIsWhereThePageHasText) {
    const Typesetter typesetter(smallBook(60, {}), 300);
    const Raster ink = typesetter.inkOf(0);
    ASSERT_EQ(ink.width, 600);
    const auto hasInk = [&](int left, int top, int right, int bottom) {
        for (int y = top; y < bottom; ++y)
            if (std::any_of(ink.row(y) + left, ink.row(y) + right, [](std::uint8_t v) { return v > 128; }))
                return true;
        return false;
    };
    EXPECT_TRUE(hasInk(40, 30, 140, 65)) << "first guide word";
    EXPECT_TRUE(hasInk(460, 30, 560, 65)) << "last";
    EXPECT_TRUE(hasInk(270, 30, 330, 65)) << "number";
    EXPECT_FALSE(hasInk(0, 0, 600, 20));
    EXPECT_EQ(Typesetter(smallBook(60, {}), 600).inkOf(0).width, 1200) << "lengths follow the resolution";
}

TEST(ScanFiles, PicturesDecodeAndTruthIsATable) {
    const test::TempFolder folder;
    Raster scan(50, 40, 255);
    scan.row(10)[10] = 0;
    for (const ScanTone tone : {ScanTone::Bilevel, ScanTone::Grey, ScanTone::Color}) {
        const auto path = folder.at("page" + scanExtension(tone));
        writeScan(path, scan, tone, 300, 80);
        const DecodedPicture decoded = decodePicture(FolderItem(path));
        EXPECT_EQ(decoded.reason, "");
        ASSERT_FALSE(decoded.picture.isNil());
        EXPECT_EQ(decoded.picture.Width(), 50);
    }
    const auto pages = folder.at("pages");
    std::filesystem::create_directory(pages);
    writeTruth(pages, {{.number = "1", .first = "a", .last = "c", .headwords = {"a", "b"}}, {.plate = true}},
               {"1.tif", "2.tif"});
    EXPECT_EQ(test::filesOf(pages), "headwords.tsv=headword\trow\na\t1\nb\t1\n "
                                    "truth.tsv=page\tnumber\tfirst\tlast\n1.tif\t1\ta\tc\n2.tif\t\t\t\n");
}

} // namespace
} // namespace velmarin
