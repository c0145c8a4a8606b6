#include "making/IndexPlan.h"

#include "text/LetterCase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace velmarin {
namespace {

KeyRule rule(std::string_view ignore, std::string_view alike) {
    return KeyRule::parse(ignore, alike).value();
}

/// The page that a search for `typed` opens; -1 for none.
int pageOf(const IndexPlan& plan, const std::string& typed, const IndexOrder& order = {}) {
    const std::string word = Uppercase(querySearchWord(typed, order));
    int page = -1;
    for (const IndexLine& line : plan.lines) {
        if (word < indexSearchWord(line.key, order))
            return page;
        page = static_cast<int>(line.page);
    }
    return page;
}

TEST(KeyRule, TurnsAHeadwordIntoItsKey) {
    const struct {
        const char *ignore, *alike, *headword, *key;
    } cases[] = {
        {"-' ", "", "re-form o'er", "reformoer"}, {"", "ä=ae, Ø=o", "Äpfel og øl", "aepfel og ol"},
        {"", "c=k,sch=s", "schick", "sikk"},      {"·", "", "A\u0308·b", "Äb"},
        {"", "", "unchanged", "unchanged"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(rule(c.ignore, c.alike).keyOf(c.headword), c.key) << c.headword;
    for (const char* wrong : {"ä", "=ae", "ä=ae ö"})
        EXPECT_FALSE(KeyRule::parse("", wrong)) << wrong;
}

TEST(IndexPlan, LeadsEveryWordToItsPage) {
    struct Look {
        const char* typed;
        int page;
    };
    const struct {
        const char* what;
        std::vector<BookEntry> entries;
        KeyRule rule;
        std::vector<Look> looks;
        std::vector<std::size_t> misplaced = {};
    } cases[] = {
        {"a page begins after an entry that runs on",
         {{"aa", 0}, {"ad", 0}, {"ad", 1, true}, {"af", 2}},
         {},
         {{"a", -1}, {"ad", 0}, {"ad hoc", 1}, {"ae", 1}, {"af", 2}}},
        {"the same entry heads several pages",
         {{"ad", 0}, {"ad", 1, true}, {"ad", 2, true}, {"ae", 3}},
         {},
         {{"ad", 0}, {"ada", 2}, {"ae", 3}}},
        {"of homographs the first", {{"ad", 0}, {"ad", 1}, {"ae", 2}}, {}, {{"ad", 0}, {"ae", 2}}},
        {"also if they are typed otherwise",
         {{"recap", 0}, {"re-fuse", 1}, {"re-fuse", 2}, {"zoo", 3}},
         rule("-", ""),
         {{"re-fuse", 1}, {"refuse", 1}}},
        {"of words with one key, the one that is typed so",
         {{"recap", 0}, {"re-fuse", 1}, {"refuse", 2}, {"zoo", 3}},
         rule("-", ""),
         {{"re-fuse", 1}, {"refuse", 2}, {"refusal", 0}}},
        {"a cell with line ends", {{"red\ndeer", 0}, {"reed", 1}}, {}, {{"red deer", 0}, {"reed", 1}}},
        {"a key that sorts elsewhere than the typed form",
         {{"recap", 0}, {"reform", 1}, {"re-fuse", 2}, {"zoo", 3}},
         rule("-", ""),
         {{"re-fuse", 2}, {"re-fusf", 0}, {"reform", 1}, {"refuse", 2}, {"regal", 2}}},
        {"one word far out of order",
         {{"aa", 0}, {"ab", 1}, {"zz", 2}, {"ac", 3}, {"ad", 4}},
         {},
         {{"zz", 2}, {"zza", 4}, {"abx", 1}, {"ac", 3}, {"x", 4}},
         {2}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const IndexPlan plan = planIndex(c.entries, c.rule, {});
        for (const Look& look : c.looks)
            EXPECT_EQ(pageOf(plan, look.typed), look.page) << look.typed;
        std::vector<std::size_t> misplaced;
        for (const Misplaced& each : plan.misplaced)
            misplaced.push_back(each.entry);
        EXPECT_EQ(misplaced, c.misplaced);
        for (const IndexLine& line : plan.lines)
            EXPECT_EQ((line.key + line.note).find('\n'), std::string::npos);
    }
}

TEST(IndexPlan, NamesTheNeighboursOfAMisplacedEntry) {
    const IndexPlan plan = planIndex({{"zz", 0}, {"aa", 1}, {"ab", 2}, {"aaa", 3}}, {}, {});
    ASSERT_EQ(plan.misplaced.size(), 2U);
    EXPECT_EQ(plan.misplaced[0].before, std::nullopt);
    EXPECT_EQ(plan.misplaced[0].after, 1U);
    EXPECT_EQ(plan.misplaced[1].before, 1U);
    EXPECT_EQ(plan.misplaced[1].after, 3U);
}

TEST(IndexPlan, KeepsTheErrataOfAllEntriesOfAKey) {
    const IndexPlan plan = planIndex({{"ad", 0, false, {"a.tif"}}, {"ad", 0, false, {"b.tif"}}}, {}, {});
    ASSERT_EQ(plan.lines.size(), 1U);
    EXPECT_EQ(plan.lines[0].errata, (std::vector<std::string>{"a.tif", "b.tif"}));
}

/// Books of different words in an order of their own: each opens its page, whatever the order, and no line is out of
/// the program's order.
TEST(IndexPlan, OpensEveryHeadwordOfRandomBooks) {
    std::mt19937 random(1);
    const std::string letters = "ab-' äøjvch";
    const KeyRule bookRule = rule("-'", "ä=ae, ø=o");
    for (int book = 0; book < 60; ++book) {
        const IndexOrder order{.SpanishMode = book % 3 == 1, .IJUVMode = book % 3 == 2, .FormatFom = ""};
        std::vector<BookEntry> entries;
        for (std::size_t i = 0; i < 40; ++i) {
            std::string headword = "x";
            for (unsigned length = random() % 5; length > 0; --length)
                headword += letters[random() % 5];
            headword += random() % 4 == 0 ? "ä" : random() % 4 == 0 ? "chj" : "";
            const std::string typed = Uppercase(querySearchWord(headword, order));
            const std::string key = indexSearchWord(bookRule.keyOf(headword), order);
            const bool taken = std::any_of(entries.begin(), entries.end(), [&](const BookEntry& each) {
                for (const std::string& word : {Uppercase(querySearchWord(each.headword, order)),
                                                indexSearchWord(bookRule.keyOf(each.headword), order)})
                    if (word == typed || word == key)
                        return true;
                return false;
            });
            if (!taken)
                entries.push_back({headword, i / 3});
        }
        const IndexPlan plan = planIndex(entries, bookRule, order);
        for (const BookEntry& entry : entries)
            EXPECT_EQ(pageOf(plan, entry.headword, order), static_cast<int>(entry.page))
                << book << ' ' << entry.headword;
        for (std::size_t i = 1; i < plan.lines.size(); ++i)
            EXPECT_LT(indexSearchWord(plan.lines[i - 1].key, order), indexSearchWord(plan.lines[i].key, order));
    }
}

} // namespace
} // namespace velmarin
