#include "search/DictionarySearch.h"

#include "files/FolderItem.h"
#include "support/DictionaryBuilder.h"
#include "support/TempFolder.h"
#include "text/LetterCase.h"
#include "text/Message.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

namespace velmarin {
namespace {

/// A loaded dictionary whose entry number k stands on page "k.tif".
class Dictionary {
  public:
    explicit Dictionary(const std::vector<std::string>& entries, const std::vector<std::string>& markers = {},
                        const std::string& format = "") {
        test::DictionaryBuilder builder("D");
        if (entries.empty())
            builder.member("ind", "").member("txt", "").picture("1.tif");
        for (std::size_t i = 0; i < entries.size(); ++i)
            builder.entry(entries[i], std::to_string(i + 1) + ".tif");
        for (const std::string& marker : markers)
            builder.member(marker, "");
        if (!format.empty())
            builder.format(format);
        EXPECT_TRUE(MakeDictionaryItem(FolderItem(builder.writeTo(folder_.path())), item, 0));
    }

    test::TempFolder& folder() { return folder_; }
    DictionaryItem item;

  private:
    test::TempFolder folder_;
};

std::string shown(const SearchResult& result) {
    switch (result.outcome) {
    case SearchOutcome::Hit:
        return result.line.imageName;
    case SearchOutcome::Before:
        return "before";
    case SearchOutcome::After:
        return "after";
    case SearchOutcome::Skipped:
        return "skipped";
    }
    return "?";
}

struct Case {
    const char* reason;
    std::vector<std::string> entries;
    std::vector<std::string> markers;
    std::string format;
    std::string query;
    std::string inTab;
    std::string inList;
};

TEST(HitSelection, TheHitIsTheEntryBeforeTheFirstGreaterOne) {
    const std::vector<std::string> aba{"ABA", "ABB", "ABD"};
    const std::vector<std::string> numbers{"001", "002", "010"};
    const std::vector<std::string> latin{"iacto", "iugum", "iulius", "uultus", "zzz"};
    const std::vector<std::string> spanish{"caza", "cuz", "chico", "choza", "dado", "zzz"};
    const std::vector<Case> cases{
        {"a word between two entries shows the lower one", aba, {}, "", "ABC", "2.tif", "2.tif"},
        {"a word equal to an entry shows that entry's line", aba, {}, "", "ABB", "2.tif", "2.tif"},
        {"a word equal to the first entry", aba, {}, "", "ABA", "1.tif", "1.tif"},
        {"a word before the first entry", aba, {}, "", "AAA", "before", "before"},
        {"a word equal to the last entry finds no greater one", aba, {}, "", "ABD", "after", "after"},
        {"a word after the last entry", aba, {}, "", "ZZZ", "after", "after"},
        {"case does not matter", aba, {}, "", "abc", "2.tif", "2.tif"},
        {"an empty query sorts before everything", aba, {}, "", "", "before", "before"},
        {"an empty index", {}, {}, "", "ABC", "after", "after"},
        {"both of two equal entries are passed", {"A", "B", "B", "C"}, {}, "", "B", "3.tif", "3.tif"},
        {"the first greater entry counts, sorted or not", {"B", "D", "A", "C"}, {}, "", "C", "1.tif", "1.tif"},
        {"accents and widths fold", {"ete", "etf"}, {}, "", "ÉＴé", "1.tif", "1.tif"},
        {"a number takes the format", numbers, {}, "000", "9", "2.tif", "2.tif"},
        {"0 counts as no number", numbers, {}, "000", "0", "before", "before"},
        {"full-width digits are no number to the format", numbers, {}, "000", "９", "after", "after"},
        {"J is I on both sides of an IJUV dictionary", latin, {"IJUV"}, "", "Julius", "3.tif", "3.tif"},
        {"V is U likewise", latin, {"IJUV"}, "", "vultus", "4.tif", "4.tif"},
        {"ch is a letter after c", spanish, {"Spanish"}, "", "chico", "3.tif", "1.tif"},
        {"in capitals too", spanish, {"Spanish"}, "", "CHOZA", "4.tif", "1.tif"},
        {"Spanish wins over IJUV", {"ija", "iza", "zzz"}, {"Spanish", "IJUV"}, "", "ja", "2.tif", "2.tif"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.reason);
        Dictionary dictionary(c.entries, c.markers, c.format);
        EXPECT_EQ(shown(searchDictionary(c.query, dictionary.item, SearchForm::Tab)), c.inTab);
        EXPECT_EQ(shown(searchDictionary(c.query, dictionary.item, SearchForm::List)), c.inList);
    }
}

TEST(HitSelection, EqualsThePlainLoopOverUnsortedIndexes) {
    std::mt19937 random(20240);
    const std::vector<std::string> letters{"a", "B", "é", "セ", "ll", "ʃ", " "};
    const auto word = [&] {
        std::string text;
        for (auto n = random() % 4; n > 0; --n)
            text += letters[random() % letters.size()];
        return text;
    };
    for (int round = 0; round < 60; ++round) {
        std::vector<std::string> entries(random() % 20);
        for (std::string& entry : entries)
            entry = word();
        Dictionary dictionary(entries,
                              round % 2 == 0 ? std::vector<std::string>{} : std::vector<std::string>{"Spanish"});
        for (int i = 0; i < 20; ++i) {
            const std::string query = word();
            const std::string searchWord = querySearchWord(query, dictionary.item.order);
            std::size_t expected = 0;
            while (expected < entries.size() &&
                   compareStrings(searchWord, indexSearchWord(entries[expected], dictionary.item.order)) >= 0)
                ++expected;
            ASSERT_EQ(searchDictionary(query, dictionary.item, SearchForm::Tab).place, expected)
                << "query \"" << query << "\" in round " << round;
        }
    }
}

TEST(HitSelection, AMissingTxtIsToldAndCountsAsALineWithoutMarkup) {
    Dictionary dictionary({"A", "B", "C"});
    std::filesystem::remove(dictionary.folder().path() / "D/txt");
    std::vector<std::string> told;
    const MessageHandler before = setMessageHandler([&told](std::string_view text) { told.emplace_back(text); });
    const SearchResult result = searchDictionary("B", dictionary.item, SearchForm::Tab);
    setMessageHandler(before);
    EXPECT_EQ(result.outcome, SearchOutcome::Hit);
    EXPECT_EQ(result.line.imageName, "");
    EXPECT_EQ(told, std::vector<std::string>{"mFiMod_GetTextFiLinesByLineNums_StringArray,TextFileFi does not exist."});
}

} // namespace
} // namespace velmarin
