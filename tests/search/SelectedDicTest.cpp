#include "search/SelectedDic.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

TEST(SelectedDic, OnlyRowsOfOpenPicksAreInUse) {
    // Two windows with a group, one without, one closed.
    const SelectedDicRows rows = rowsInUse({{2, "Latin"}, {-1, ""}, {0, "English"}, {-1, ""}});
    EXPECT_TRUE(rows.contains(0));
    EXPECT_FALSE(rows.contains(1));
    EXPECT_TRUE(rows.contains(2));
}

TEST(SelectedDic, HelpNamesTheTakenRowsOfThisPopUpInOrder) {
    const SelectedDicRows rows = rowsInUse({{2, "Latin"}, {-1, "nobody's"}, {0, "English"}});
    EXPECT_EQ(takenGroupsHelp(rows, 3), "You cant select following items which are already selected: \rEnglish\rLatin");
    EXPECT_EQ(takenGroupsHelp(rows, 1), "You cant select following items which are already selected: \rEnglish");
    EXPECT_EQ(takenGroupsHelp(rowsInUse({{-1, ""}}), 3), "");
}

} // namespace
} // namespace velmarin
