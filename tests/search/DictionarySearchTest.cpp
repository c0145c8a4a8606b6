#include "search/DictionarySearch.h"

#include "support/CollectedMessages.h"
#include "support/DictionaryBuilder.h"
#include "support/TempFolder.h"
#include "text/Grep.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace velmarin::test {
namespace {

std::string shown(const SearchResult& result) {
    if (result.outcome == SearchOutcome::Hit)
        return result.line.imageName;
    return result.outcome == SearchOutcome::Before ? "before" : "after";
}

TEST(HitSelection, TheHitIsTheEntryBeforeTheFirstGreaterOne) {
    using Words = std::vector<std::string>;
    const Words aba{"ABA", "ABB", "ABD"}, spanish{"caza", "cuz", "chico", "choza", "dado", "zzz"};
    const struct {
        const char* reason;
        Words entries; ///< on the pages 1, 2 and so on
        Words markers;
        std::string format, query, inTab, inList;
    } cases[] = {
        {"between two entries", aba, {}, "", "ABC", "2", "2"},
        {"equal to an entry", aba, {}, "", "ABB", "2", "2"},
        {"equal to the first entry", aba, {}, "", "ABA", "1", "1"},
        {"before the first entry", aba, {}, "", "AAA", "before", "before"},
        {"equal to the last entry, so none is greater", aba, {}, "", "ABD", "after", "after"},
        {"an empty query", aba, {}, "", "", "before", "before"},
        {"an empty index", {}, {}, "", "ABC", "after", "after"},
        {"both of two equal entries are passed", {"A", "B", "B", "C"}, {}, "", "B", "3", "3"},
        {"the first greater entry counts, sorted or not", {"B", "D", "A", "C"}, {}, "", "C", "1", "1"},
        {"a number takes the format", {"001", "002", "010"}, {}, "000", "9", "2", "2"},
        {"J is I on both sides of an IJUV dictionary", {"iacto", "iulius", "uultus"}, {"IJUV"}, "", "Julius", "2", "2"},
        {"ch is a letter after c", spanish, {"Spanish"}, "", "chico", "3", "1"},
        {"in capitals too", spanish, {"Spanish"}, "", "CHOZA", "4", "1"},
        {"Spanish wins over IJUV", {"ija", "iza", "zzz"}, {"Spanish", "IJUV"}, "", "ja", "2", "2"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        DictionaryBuilder builder("D");
        if (c.entries.empty())
            builder.picture("1").member("ind", "").member("txt", "");
        for (std::size_t i = 0; i < c.entries.size(); ++i)
            builder.entry(c.entries[i], std::to_string(i + 1));
        for (const std::string& marker : c.markers)
            builder.member(marker, "");
        if (!c.format.empty())
            builder.format(c.format);
        const TempFolder folder;
        DictionaryItem item;
        ASSERT_TRUE(MakeDictionaryItem(FolderItem(builder.writeTo(folder.path())), item, 0));
        EXPECT_EQ(shown(searchDictionary(c.query, item, SearchForm::Tab)), c.inTab);
        EXPECT_EQ(shown(searchDictionary(c.query, item, SearchForm::List)), c.inList);
    }
}

TEST(HitSelection, AMissingTxtIsReportedAndCountsAsALineWithoutMarkup) {
    const TempFolder folder;
    DictionaryItem item;
    MakeDictionaryItem(FolderItem(DictionaryBuilder("D").entries({"A", "B", "C"}).writeTo(folder.path())), item, 0);
    std::filesystem::remove(folder.path() / "D/txt");
    const CollectedMessages messages;
    const SearchResult result = searchDictionary("B", item, SearchForm::Tab);
    EXPECT_EQ(result.outcome, SearchOutcome::Hit);
    EXPECT_EQ(result.line.imageName, "");
    EXPECT_EQ(messages.texts,
              std::vector<std::string>{"mFiMod_GetTextFiLinesByLineNums_StringArray,TextFileFi does not exist."});
    folder.unreadable("D/txt");
    EXPECT_EQ(searchDictionary("B", item, SearchForm::Tab).line.imageName, "");
    EXPECT_NE(messages.texts.back().find("/D/txt\" could not be read: Input/output error"), std::string::npos);
}

TEST(TxtLine, MarkupGivesThePageAndTheErrata) {
    const struct {
        const char* reason;
        std::string line, imageName;
        std::vector<std::string> errata;
    } cases[] = {
        {"text on every side is ignored", "see <@_p 1.tif_> and <^_e.tif_> too", "p 1.tif", {"e.tif"}},
        {"the first page marker counts", "<@_a.tif_><^_1_><@_b.tif_><^_2_>", "a.tif", {"1", "2"}},
        {"an empty marker reaches for the next closing", "<@__><@_b.tif_>", "_><@_b.tif", {}},
        {"taking a marker out can join another, once", "<<^_a_>^_b_>^_c_>", "", {"a", "b"}},
        {"bytes that are no UTF-8 beside a marker", "\xff\xfe<@_頁.tif_>\xc3", "頁.tif", {}},
    };
    for (const auto& c : cases) {
        const TxtLine read = parseTxtLine(c.line);
        EXPECT_EQ(read.imageName, c.imageName) << c.reason;
        EXPECT_EQ(read.errata, c.errata) << c.reason;
    }
}

TEST(TxtLine, AgreesWithThePatternsOnAnyLine) {
    std::mt19937 random(7);
    // Many lines hold markers that are joined only when others are taken out.
    const std::array pieces = {"<^_", "<^_", "_>", "_>", "<@_", "<", "^", "_", "<^", "^_", ">", "a", "b_>"};
    for (int i = 0; i < 20'000; ++i) {
        std::string line;
        for (std::size_t left = random() % 20; left > 0; --left)
            line += pieces[random() % pieces.size()];
        std::vector<std::string> errata;
        for (std::string rest = line; mStrMod_GrepMBS_Search(0, rest, kErrataMarkerPattern) != 0;) {
            errata.push_back(mStrMod_GrepMBS_Find(0, rest, kErrataMarkerPattern));
            rest = mStrMod_GrepMBS_Replace(rest, kErrataMarkerPattern, "");
        }
        const TxtLine read = parseTxtLine(line);
        ASSERT_EQ(read.imageName, mStrMod_GrepMBS_Find(0, line, kPageMarkerPattern)) << line;
        ASSERT_EQ(read.errata, errata) << line;
    }
}

TEST(TxtLine, AVeryLongLineIsReadToItsEnd) {
    std::string line, openings;
    while (line.size() < 3'000'000)
        line += "<^_e_>", openings += "<^_<@_";
    EXPECT_EQ(parseTxtLine(line + "<@_p.tif_>").imageName, "p.tif");
    EXPECT_EQ(parseTxtLine(line).errata.size(), line.size() / 6);
    EXPECT_TRUE(parseTxtLine(openings).errata.empty());
}

} // namespace
} // namespace velmarin::test
