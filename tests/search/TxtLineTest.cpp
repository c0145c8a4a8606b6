#include "search/DictionarySearch.h"

#include "text/Grep.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

using velmarin::kErrataMarkerPattern;
using velmarin::kPageMarkerPattern;
using velmarin::mStrMod_GrepMBS_Find;
using velmarin::mStrMod_GrepMBS_Replace;
using velmarin::mStrMod_GrepMBS_Search;
using velmarin::parseTxtLine;

namespace {

struct Case {
    const char* reason;
    std::string line;
    std::string imageName;
    std::vector<std::string> errata;
};

TEST(TxtLine, MarkupGivesThePageAndTheErrata) {
    const std::vector<Case> cases{
        {"text on every side is ignored", "see <@_p 1.tif_> and <^_e.tif_> too", "p 1.tif", {"e.tif"}},
        {"the first page marker counts", "<@_a.tif_><@_b.tif_>", "a.tif", {}},
        {"three errata in the order of the line",
         "<^_1.tif_><@_p.tif_><^_2.tif_>x<^_3.tif_>",
         "p.tif",
         {"1.tif", "2.tif", "3.tif"}},
        {"each marker ends at its own closing", "<@_a_b.tif_>tail_>", "a_b.tif", {}},
        {"an empty marker reaches for the next closing", "<@__><@_b.tif_>", "_><@_b.tif", {}},
        {"a marker that is never closed is text", "<@_p.tif <^_e.tif", "", {}},
        {"taking a marker out can join another", "<<^_a_>^_b_>", "", {"a", "b"}},
        {"what was joined is used up", "<<^_a_>^_b_>^_c_>", "", {"a", "b"}},
        {"names in any script", "<@_頁一.tif_><^_é.tif_>", "頁一.tif", {"é.tif"}},
        {"bytes that are no UTF-8 beside a marker", "\xff\xfe<@_p.tif_>\xc3", "p.tif", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.reason);
        const auto read = parseTxtLine(c.line);
        EXPECT_EQ(read.imageName, c.imageName);
        EXPECT_EQ(read.errata, c.errata);
    }
}

TEST(TxtLine, AgreesWithThePatternsOnAnyLine) {
    std::mt19937 random(7);
    // Pieces of markers, so that many lines hold markers that are joined only when others are taken out.
    const std::array pieces = {"<^_", "<^_", "_>", "_>", "<@_", "<", "^", "_", "<^", "^_", ">", "a", "b_>"};
    for (int i = 0; i < 20'000; ++i) {
        std::string line;
        for (std::size_t left = random() % 20; left > 0; --left)
            line += pieces[random() % pieces.size()];
        const auto read = parseTxtLine(line);
        EXPECT_EQ(read.imageName, mStrMod_GrepMBS_Find(0, line, kPageMarkerPattern)) << line;
        std::vector<std::string> errata;
        for (std::string rest = line; mStrMod_GrepMBS_Search(0, rest, kErrataMarkerPattern) != 0;) {
            errata.push_back(mStrMod_GrepMBS_Find(0, rest, kErrataMarkerPattern));
            rest = mStrMod_GrepMBS_Replace(rest, kErrataMarkerPattern, "");
        }
        ASSERT_EQ(read.errata, errata) << line;
    }
}

TEST(TxtLine, TheEndOfAVeryLongLineIsRead) {
    std::string line;
    while (line.size() < 3'000'000)
        line += "<^_e_>";
    EXPECT_EQ(parseTxtLine(line).errata.size(), line.size() / 6);
    EXPECT_EQ(parseTxtLine(line + "<@_p.tif_>").imageName, "p.tif");
    std::string openings;
    while (openings.size() < 3'000'000)
        openings += "<^_<@_";
    EXPECT_EQ(parseTxtLine(openings).errata.size(), 0U);
}

} // namespace
