#include "side/DictionaryModule.h"
#include "side/UserDictionaryDisplay.h"

#include "support/CollectedMessages.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

using Lines = std::vector<std::string>;

TEST(UserSearchWord, IsCutAtTheMarkerAndFolded) {
    DictionaryModule module;
    EXPECT_EQ(module.m__SubMakeSearchWord("a__NUM__1b__NUM__2"), "A");
    EXPECT_EQ(module.m__SubMakeSearchWord("Ｊｕｓ　Élan ch"), "JUS ELAN CH");
    module.pIJUV = true;
    EXPECT_EQ(module.m__SubMakeSearchWord("Julius v"), "IULIUS U");
    module.pIJUV = false;
    module.pSpanish = true;
    EXPECT_EQ(module.m__SubMakeSearchWord("chillar"), "cʃIlʎAR");
    EXPECT_EQ(module.m__SubSpanish("cʃilʎar", 1), "chillar");
}

TEST(UserMatch, MatchesIn) {
    const struct {
        const char* name;
        const char* indexWord;
        const char* searchWord;
        const char* modes; ///< those of 0 to 5 that match
    } cases[] = {{"Same", "AMOR", "AMOR", "01234"},
                 {"CaseDoesNotCount", "Amor", "aMOR", "01234"},
                 {"CaseBeyondAscii", "ÀMOR", "àmor", "01234"},
                 {"Start", "AMORIS", "AMOR", "034"},
                 {"End", "CLAMOR", "AMOR", "134"},
                 {"Inside", "CLAMORIS", "AMOR", "34"},
                 {"Longer", "AMO", "AMOR", ""},
                 {"Pattern", "AMOR", "^A.+R$", "4"},
                 {"BadPattern", "AMOR", "(", ""},
                 {"EmptyWordBeginsAndEndsAll", "AMOR", "", "014"},
                 {"BothEmpty", "", "", "0124"}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        std::string modes;
        for (int mode = -1; mode <= 5; ++mode)
            if (DictionaryModule::m__SubMatch(each.indexWord, each.searchWord, mode))
                modes += std::to_string(mode);
        EXPECT_EQ(modes, each.modes);
    }
}

TEST(UserSearch, FindsTheLines) {
    const struct {
        const char* name;
        const char* index;
        const char* word;
        Lines found;
    } cases[] = {{"OrderOfTheTextEachOnce", "AMO\t2\nB\t1\nAMO\t0\nAMO\t2\n", "amo", {"zero\tm", "two\tm"}},
                 {"BeyondTheEnd", "AMO\t9\nAMO\t3\n", "amo", {"three"}},
                 {"NegativeNumber", "AMO\t-1\n", "amo", {}},
                 {"NoSecondField", "AMO\n", "amo", {"zero\tm"}},
                 {"QueryIsCutAtTheMarker", "AMO\t1\n", "amo__NUM__7", {"one\tm"}},
                 {"EmptyWord", "\t1\nAMO\t2\n", "", {"one\tm"}},
                 {"CarriageReturns", "B\t1\rAMO\t2\rC\t0\r", "amo", {"two\tm"}}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const test::TempFolder folder;
        folder.write("Index.txt", each.index);
        folder.write("Text.txt", "zero\tm\r\none\tm\rtwo\tm\nthree");
        DictionaryModule module;
        module.pResult = {"of the last search"};
        EXPECT_EQ(module.mSearch(FolderItem(folder.path()), each.word, 2, false), !each.found.empty());
        EXPECT_EQ(module.pResult, each.found);
    }
}

TEST(UserSearch, OfTheIndexAloneGivesTheNumbersAsItWritesThem) {
    const test::TempFolder folder;
    folder.write("Index.txt", "AMO\t07\nAMOR\t1\nB\t2\nAMO\n");
    test::CollectedMessages messages;
    DictionaryModule module;
    EXPECT_TRUE(module.mSearch(FolderItem(folder.path()), "amo", 0, true));
    EXPECT_EQ(module.pResult, (Lines{"07", "1", ""}));
    EXPECT_FALSE(module.mSearch(FolderItem(folder.path()), "amo", 5, true));
    EXPECT_FALSE(module.mSearch(FolderItem(folder.path()), "amo", 2, false)) << "there is no Text.txt";
    EXPECT_EQ(messages.texts, (Lines{"DictionaryModule, m__SubGetText: something wrong"}));
}

TEST(UserSearchResult, InAPopUpAddsRowsWithTags) {
    DictionaryModule module;
    module.pResult = {"one__DLM__first", "two"};
    Lines rows;
    int yields = 0;
    mDisplayResult(
        module, "Mine", true,
        [&](const std::string& caption, const std::string& tag) { rows.push_back(caption + "/" + tag); }, nullptr,
        [&] { ++yields; });
    EXPECT_EQ(rows, (Lines{"one/first", "two/"}));
    EXPECT_EQ(yields, 2);
    test::CollectedMessages messages;
    mDisplayResult(module, "Mine", true, {}, nullptr, [] {});
    EXPECT_EQ(messages.texts, (Lines{"DictionaryModule, mDisplayResult: Somthing wrong."}));
}

} // namespace
} // namespace velmarin
