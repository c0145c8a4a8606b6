#include "search/SelectedDic.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

TEST(SelectedDic, HelpNamesTheRowsOfOpenPicksThatThisPopUpHasInOrder) {
    const SelectedDicRows rows = rowsInUse({{2, "Latin"}, {-1, "no pick"}, {0, "English"}});
    EXPECT_TRUE(rows.contains(2) && !rows.contains(1));
    EXPECT_EQ(takenGroupsHelp(rows, 3), "You cant select following items which are already selected: \rEnglish\rLatin");
    EXPECT_EQ(takenGroupsHelp(rows, 2), "You cant select following items which are already selected: \rEnglish");
    EXPECT_EQ(takenGroupsHelp(rowsInUse({{-1, ""}}), 3), "");
}

} // namespace
} // namespace velmarin
