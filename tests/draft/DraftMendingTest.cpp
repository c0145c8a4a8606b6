#include "draft/DraftMending.h"
#include "draft/DraftEntries.h"
#include "draft/NumberMending.h"
#include "draft/OrderedChoice.h"

#include "SimulatedBook.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velmarin {
namespace {

/// Forty pages read without a fault, "conabano" to "conabono" and on.
std::vector<PageGuess> wellRead() {
    std::vector<PageGuess> guesses;
    const auto word = [](std::size_t i) {
        return std::string("cona") + static_cast<char>('b' + i / 20) + static_cast<char>('a' + i % 20) + "no";
    };
    for (std::size_t i = 0; i < 40; ++i)
        guesses.push_back(
            {.page = "p" + std::to_string(i), .first = {{word(2 * i), 0.97}}, .last = {{word(2 * i + 1), 0.97}}});
    return guesses;
}

std::string shown(const DraftPage& row) {
    return row.first + ".." + row.last + " " + std::string(nameOf(row.state));
}

TEST(DraftMending, TellsWhatCanBeTrusted) {
    using Pages = std::vector<PageGuess>;
    const struct {
        const char* what;
        void (*change)(Pages&);
        const char* row; ///< of page 20
        std::vector<DraftPage> set = {};
    } cases[] = {
        {"well read", [](Pages&) {}, "conadano..conadbno certain"},
        {"out of order",
         [](Pages& p) {
             p[20].first = {{"zondano", 0.9}};
         },
         "zondano..conadbno doubtful"},
        {"out of order by letters that look alike",
         [](Pages& p) {
             p[20].last = {{"conaclbno", 0.9}};
         },
         "conadano..conadbno doubtful"},
        {"another reading in order",
         [](Pages& p) {
             p[20].first = {{"oonadano", 0.5}, {"conadano", 0.45}};
         },
         "conadano..conadbno mended"},
        {"badly read",
         [](Pages& p) {
             p[20].first = {{"conadamo", 0.3}};
         },
         "conadamo..conadbno doubtful"},
        {"not read", [](Pages& p) { p[20].first.clear(); }, "..conadbno doubtful"},
        {"nothing read", [](Pages& p) { p[20] = {.page = "p20"}; }, ".. doubtful"},
        {"scanned twice",
         [](Pages& p) {
             p[20].first = p[19].first;
             p[20].last = p[19].last;
         },
         "conacsno..conactno doubtful"},
        {"an entry that fills the page",
         [](Pages& p) {
             p[20].first = p[20].last = p[21].first = p[19].last = {{"conadano", 0.8}};
         },
         "conadano..conadano certain"},
        {"a plate", [](Pages& p) { p[20] = {.page = "p20", .look = PageLook::Plate}; }, ".. certain"},
        {"a letter begins without guide words",
         [](Pages& p) {
             p[20] = {.page = "p20", .first = {{"conadano", 0.97}}, .unheaded = true};
         },
         "conadano.. doubtful"},
        {"two leaves exchanged",
         [](Pages& p) {
             std::swap(p[20], p[22]);
             std::swap(p[21], p[23]);
             p[20].page = "p20";
         },
         "conadeno..conadfno certain"},
        {"another order than the program's, so that nothing follows from it",
         [](Pages& p) {
             for (std::size_t i = 10; i < p.size(); ++i)
                 std::swap(p[i].first, p[i].last);
             std::reverse(p.begin() + 10, p.end());
             p[20].page = "p20";
             p[20].last = {{"aa", 0.9}, {"conbano", 0.1}};
         },
         "conadtno..aa doubtful"},
        {"set", [](Pages&) {}, "x..y set", {{"p20", "", "x", "y"}}},
        {"a person's row decides between two readings",
         [](Pages& p) {
             p[20].last = {{"conadhzo", 0.6}, {"conadbno", 0.38}};
             for (const std::size_t i : {21, 22, 23, 24})
                 p[i].first = p[i].last = {};
         },
         "conadano..conadbno mended",
         {{"p21", "", "conadcno", "conaddno"}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        std::vector<PageGuess> guesses = wellRead();
        c.change(guesses);
        const Draft draft = mendedDraft(guesses, c.set, {}, {});
        ASSERT_EQ(draft.pages.size(), guesses.size());
        EXPECT_EQ(shown(draft.pages[20]), c.row) << draft.pages[20].confidence;
        EXPECT_EQ(draft.pages[5].first, "conabkno");
    }
}

TEST(DraftMending, LeavesFrontMatterAndAppendixOut) {
    std::vector<PageGuess> guesses = wellRead();
    for (const char* title : {"Preface", "Abbreviations", "Preface", "Abbreviations", "Authors", ""}) {
        guesses.insert(guesses.begin() + 2, {.page = "front", .first = {{title, 0.95}}});
        guesses.push_back({.page = "back", .first = {{std::string("Supplement") + title, 0.95}}});
    }
    std::rotate(guesses.begin(), guesses.begin() + 2, guesses.begin() + 8);
    const Draft draft = mendedDraft(guesses, {}, {}, {});
    for (const DraftPage& row : draft.pages) {
        SCOPED_TRACE(row.page + " " + shown(row));
        const bool inside = row.page.starts_with("p");
        EXPECT_EQ(row.first.empty(), !inside && row.state != PageState::Doubtful);
        EXPECT_TRUE(!inside || row.state == PageState::Certain);
    }
}

/// Of books that are read badly hardly a row is trusted that is wrong, and after a person has set the doubtful ones
/// every headword opens its page.
TEST(DraftMending, IsTrustedOnlyWhereItIsRight) {
    const struct {
        const char* what;
        test::ReadingFaults faults;
        double leastOpened;
    } cases[] = {
        {"well read", {.wrong = 0.03, .lost = 0.005, .confirmed = 0.8}, 0.998},
        {"badly read, with plates and exchanged leaves",
         {.wrong = 0.2, .lost = 0.013, .confirmed = 0.7, .swappedEvery = 90, .plateEvery = 60, .frontMatter = 12},
         0.98},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        std::mt19937 random(1);
        const auto book = test::simulatedBook(test::inventedHeadwords(8000, random), 20, c.faults, random);
        const test::DraftFigures figures = test::figuresOf(book);
        EXPECT_LE(figures.falselyTrusted, 2U);
        EXPECT_GT(figures.rightAfter, figures.rightBefore);
        EXPECT_GT(static_cast<double>(figures.opened), c.leastOpened * static_cast<double>(figures.headwords));
        EXPECT_LE(figures.headwords - figures.openedAfterSetting, 4U);
        EXPECT_LE(figures.asked, figures.doubtful);
    }
}

TEST(GuideWords, OfADraftSayWhereEntriesBegin) {
    const Draft draft{{{"p0", "", "aa", "ac", 99, PageState::Certain},
                       {"p1", "", "zz", "ae", 20, PageState::Doubtful}, // breaks the order
                       {"p2", "", "af", "ah", 99, PageState::Set},
                       {"p3", "", "", "", 95, PageState::Certain}, // a plate
                       {"p4", "", "", "", 0, PageState::Doubtful}, // has entries that nobody read
                       {"p5", "", "aj", "al", 50, PageState::Doubtful},
                       {"p6", "", "aq", "as", 99, PageState::Certain}, // bound before p7
                       {"p7", "", "am", "ap", 99, PageState::Certain},
                       {"p8", "", "at", "aw", 99, PageState::Certain},
                       {"p9", "", "at", "aw", 99, PageState::Certain}}}; // scanned twice
    std::string text;
    for (const BookEntry& each : entriesOf(draft, {}, {}))
        text += each.headword + (each.after ? "+ " : " ") + std::to_string(each.page) + ", ";
    EXPECT_EQ(text, "aa 0, ac 0, ac+ 1, ae 1, af 2, ah 2, ah+ 4, aj 5, al 5, am 7, ap 7, aq 6, as 6, at 8, aw 8, ");
}

TEST(PrintedNumbers, AreMendedByThoseAround) {
    const struct {
        std::vector<const char*> read;
        std::vector<std::string> mended;
    } cases[] = {
        {{"1", "2", "8", "4", "", "6"}, {"1", "2", "3", "4", "5", "6"}},
        {{"vii", "viii", "", "1", "2", "3"}, {"vii", "viii", "", "1", "2", "3"}},
        {{"10", "11", "", "12", "13", "14"}, {"10", "11", "", "12", "13", "14"}}, // an unnumbered plate
        {{"10", "11", "12", "21", "22", "23"}, {"10", "11", "12", "21", "22", "23"}},
        {{"1", "2", "3", "44", "", "96", "", "88", "9", "10"}, {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}},
        {{"1", "3", "6", "7", "9", "11"}, {"1", "3", "5", "7", "9", "11"}}, // numbered columns
        {{"", "", ""}, {"", "", ""}},
    };
    for (const auto& c : cases) {
        std::vector<NumberGuess> guesses;
        for (const std::string read : c.read)
            guesses.push_back({.readings = read.empty() ? std::vector<Guess>() : std::vector<Guess>{{read, 0.9}}});
        EXPECT_EQ(mendedNumbers(guesses), c.mended) << c.read[0];
    }
    EXPECT_EQ(mendedNumbers({{{{"5", 0.9}}}, {{{"9", 1}}, true}, {{{"7", 0.9}}}, {{{"8", 0.9}}}})[0], "8");
}

/// Against all choices there are.
TEST(OrderedChoice, IsTheHeaviestInOrder) {
    std::mt19937 random(3);
    for (int round = 0; round < 200; ++round) {
        std::vector<std::vector<RankedWord>> places(5);
        for (auto& words : places)
            for (std::size_t count = random() % 3; count > 0; --count)
                words.push_back({random() % 6, static_cast<double>(1 + random() % 9)});
        double best = 0;
        for (int choice = 0; choice < 243; ++choice) {
            double weight = 0;
            std::size_t lowest = 0;
            bool valid = true;
            for (int place = 0, rest = choice; place < 5; ++place, rest /= 3) {
                const auto& words = places[static_cast<std::size_t>(place)];
                const std::size_t word = static_cast<std::size_t>(rest % 3);
                if (word == 2)
                    continue;
                valid = valid && word < words.size() && words[word].rank >= lowest;
                if (valid) {
                    lowest = words[word].rank;
                    weight += words[word].weight;
                }
            }
            best = valid ? std::max(best, weight) : best;
        }
        const auto taken = heaviestChoice(places, 6);
        double weight = 0;
        std::size_t lowest = 0;
        for (std::size_t place = 0; place < places.size(); ++place)
            if (taken[place]) {
                EXPECT_GE(places[place][*taken[place]].rank, lowest);
                lowest = places[place][*taken[place]].rank;
                weight += places[place][*taken[place]].weight;
            }
        EXPECT_EQ(weight, best);
    }
}

} // namespace
} // namespace velmarin
