#include "side/SubwindowFile.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

TEST(SubwindowFile, IsReadAs) {
    const struct {
        const char* name;
        const char* text;
        const char* meaning; ///< as it would be written
        bool hasRow;
    } cases[] = {
        {"Whole", "400\n7\n3\nFalse\nTrue\nDicApp\nTrue\nFalse\nTrue\n2\n",
         "400\n7\n3\nFalse\nTrue\nDicApp\nTrue\nFalse\nTrue\n2\n", true},
        {"CaseDoesNotCount", "400\n7\n3\nfalse\ntrue\ndicapp\nTRUE\nFALSE\nTrUe\n2",
         "400\n7\n3\nFalse\nTrue\nDicApp\nTrue\nFalse\nTrue\n2\n", true},
        {"CarriageReturns", "400\r7\r3\rTrue\rTrue\rFind\rTrue\rTrue\rTrue\r-1\r",
         "400\n7\n3\nTrue\nTrue\nFind\nTrue\nTrue\nTrue\n-1\n", true},
        {"EmptyLastLineLeavesThePopupAlone", "400\n7\n3\nTrue\nFalse\nFind\nTrue\nTrue\nTrue\n\n",
         "400\n7\n3\nTrue\nFalse\nFind\nTrue\nTrue\nTrue\n-1\n", false},
        {"ShortFileIsZeroAndFalse", "400\n7\n", "400\n7\n0\nFalse\nFalse\nFind\nFalse\nFalse\nFalse\n-1\n", false},
        {"EmptyFile", "", "0\n0\n0\nFalse\nFalse\nFind\nFalse\nFalse\nFalse\n-1\n", false},
        {"OtherTexts", "wide\n99999999999\n-2.9\n1\nyes\nService\nT\n \n\n3.7\n",
         "0\n2147483647\n-2\nFalse\nFalse\nFind\nFalse\nFalse\nFalse\n3\n", true}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const SubwindowSettings settings = parseSubwindow(each.text);
        EXPECT_EQ(subwindowText(settings), each.meaning);
        EXPECT_EQ(settings.userDicRow.has_value(), each.hasRow);
    }
}

} // namespace
} // namespace velmarin
