#include "draft/DraftOrder.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

const Draft kDraft{{{"p1", "11", "aa", "abacus", 99, PageState::Certain},
                    {"p2", "12", "zz", "zz", 99, PageState::Set}, // a misplaced page
                    {"p3", "13", "", "", 0, PageState::Doubtful},
                    {"p4", "14", "abb", "abbot", 40, PageState::Doubtful},
                    {"p5", "", "abe", "abel", 99, PageState::Mended},
                    {"p6", "16", "abel", "abide", 99, PageState::Certain},
                    {"p7", "17", "aba", "abide", 70, PageState::Doubtful},
                    {"p8", "18", "abo", "about", 70, PageState::Certain}}};

TEST(DraftOrder, TellsWhatOrderAWordBreaks) {
    const struct {
        std::size_t row;
        GuidePlace place;
        const char *word, *problem;
    } cases[] = {
        {2, GuidePlace::First, "aba", "comes before ‘abacus’ on page 11"},
        {2, GuidePlace::First, "Ábacus", ""},
        {2, GuidePlace::Last, "abf", "comes after ‘abe’ on p5"}, // what is doubtful does not count
        {3, GuidePlace::First, "abc", "comes after ‘abbot’, the last word of the page"},
        {3, GuidePlace::Last, "abaz", "comes before ‘abb’, the first word of the page"},
        {4, GuidePlace::First, "", ""},
        {7, GuidePlace::Last, "zz", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(orderProblem(kDraft, c.row, c.place, c.word, {}, {}), c.problem) << c.row << ' ' << c.word;
}

TEST(DraftOrder, TellsWhyARowIsDoubtful) {
    const char* reasons[] = {"",
                             "",
                             "no guide word was read",
                             "compare with the page, letter by letter",
                             "",
                             "",
                             "‘aba’ comes before ‘abide’ on page 16",
                             ""};
    for (std::size_t row = 0; row < kDraft.pages.size(); ++row)
        EXPECT_EQ(doubtReason(kDraft, row, {}, {}), reasons[row]) << row;
}

} // namespace
} // namespace velmarin
