#include "side/SubwindowFile.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace velmarin {
namespace {

TEST(SubwindowFile, HoldsTenLines) {
    SubwindowSettings settings;
    settings.width = 400;
    settings.fontRow = 7;
    settings.sizeRow = 3;
    settings.DicAppCB = false;
    settings.LatinCB = true;
    settings.target = FindTarget::DicApp;
    settings.SyncronizeCB = true;
    settings.UserDicCB = true;
    settings.userDicRow = 2;
    EXPECT_EQ(subwindowText(settings), "400\n7\n3\nFalse\nTrue\nDicApp\nTrue\nFalse\nTrue\n2\n");
    settings.userDicRow.reset();
    settings.target = FindTarget::Find;
    EXPECT_EQ(subwindowText(settings), "400\n7\n3\nFalse\nTrue\nFind\nTrue\nFalse\nTrue\n-1\n");
}

struct ParseCase {
    const char* name;
    const char* text;
    const char* meaning; ///< as it would be written
    bool rowTold;
};

class SubwindowFileParse : public testing::TestWithParam<ParseCase> {};

TEST_P(SubwindowFileParse, IsReadAs) {
    const SubwindowSettings settings = parseSubwindow(GetParam().text);
    EXPECT_EQ(subwindowText(settings), GetParam().meaning);
    EXPECT_EQ(settings.userDicRow.has_value(), GetParam().rowTold);
}

INSTANTIATE_TEST_SUITE_P(
    Files, SubwindowFileParse,
    testing::Values(ParseCase{"Whole", "400\n7\n3\nFalse\nTrue\nDicApp\nTrue\nFalse\nTrue\n2\n",
                              "400\n7\n3\nFalse\nTrue\nDicApp\nTrue\nFalse\nTrue\n2\n", true},
                    ParseCase{"CaseDoesNotCount", "400\n7\n3\nfalse\ntrue\ndicapp\nTRUE\nFALSE\nTrUe\n2",
                              "400\n7\n3\nFalse\nTrue\nDicApp\nTrue\nFalse\nTrue\n2\n", true},
                    ParseCase{"CarriageReturns", "400\r7\r3\rTrue\rTrue\rFind\rTrue\rTrue\rTrue\r-1\r",
                              "400\n7\n3\nTrue\nTrue\nFind\nTrue\nTrue\nTrue\n-1\n", true},
                    ParseCase{"EmptyLastLineLeavesThePopupAlone", "400\n7\n3\nTrue\nFalse\nFind\nTrue\nTrue\nTrue\n\n",
                              "400\n7\n3\nTrue\nFalse\nFind\nTrue\nTrue\nTrue\n-1\n", false},
                    ParseCase{"ShortFileIsZeroAndFalse", "400\n7\n",
                              "400\n7\n0\nFalse\nFalse\nFind\nFalse\nFalse\nFalse\n-1\n", false},
                    ParseCase{"EmptyFile", "", "0\n0\n0\nFalse\nFalse\nFind\nFalse\nFalse\nFalse\n-1\n", false},
                    ParseCase{"OtherTexts", "wide\n99999999999\n-2.9\n1\nyes\nService\nT\n \n\n3.7\n",
                              "0\n2147483647\n-2\nFalse\nFalse\nFind\nFalse\nFalse\nFalse\n3\n", true}),
    [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace velmarin
