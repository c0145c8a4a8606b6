#include "view/PageImageSize.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace velmarin {

void PrintTo(const Extent& extent, std::ostream* out) {
    *out << extent.width << " by " << extent.height;
}

namespace {

struct RatioCase {
    const char* name;
    const char* text;
    double ratio;
};
class RatioText : public ::testing::TestWithParam<RatioCase> {};

TEST_P(RatioText, IsAPercentage) {
    EXPECT_EQ(ratioOfText(GetParam().text), GetParam().ratio);
}

INSTANTIATE_TEST_SUITE_P(PageImageSize, RatioText,
                         ::testing::Values(RatioCase{"Quarter", "25", 0.25}, RatioCase{"MoreThanAll", "150", 1.5},
                                           RatioCase{"ZeroIsAll", "0", 1.0}, RatioCase{"ZerosAreAll", "000", 1.0},
                                           RatioCase{"EmptyIsAll", "", 1.0}, RatioCase{"NoNumberIsAll", "abc", 1.0},
                                           RatioCase{"RowOfTheMenu", "30%", 0.3}),
                         [](const auto& info) { return info.param.name; });

struct LoadCase {
    const char* name;
    double ratio;
    Extent picture;
    int leastWidth;
    Extent window;
};
class LoadedPicture : public ::testing::TestWithParam<LoadCase> {};

TEST_P(LoadedPicture, GivesTheWindowItsSize) {
    const LoadCase& row = GetParam();
    EXPECT_EQ(windowForPicture(row.ratio, row.picture, row.leastWidth), row.window);
}

INSTANTIATE_TEST_SUITE_P(
    PageImageSize, LoadedPicture,
    ::testing::Values(LoadCase{"Half", 0.5, {1000, 1500}, 0, {500, 780}},
                      LoadCase{"HeightStaysWithTheRatioInAWindowThatIsWider", 0.5, {1000, 1500}, 580, {580, 780}},
                      LoadCase{"TooNarrowTakesItsHeightFromTheWidth", 0.3, {1000, 1500}, 0, {350, 555}},
                      LoadCase{
                          "TooNarrowTakesItsHeightFromTheWidthThatTheWindowHas", 0.3, {1000, 1500}, 580, {580, 899}},
                      LoadCase{"JustWideEnough", 0.35, {1000, 1500}, 0, {350, 555}},
                      LoadCase{"SidesAreCutNotRounded", 0.75, {999, 667}, 0, {749, 530}},
                      LoadCase{"Enlarged", 1.5, {1000, 1500}, 580, {1500, 2280}},
                      LoadCase{"OnePixel", 1.0, {1, 1}, 580, {580, 610}},
                      LoadCase{"LongStrip", 1.0, {1, 4'000'000}, 580, {580, 2147483647}},
                      LoadCase{"RatioBelowZero", -0.05, {1000, 1000}, 580, {580, 610}},
                      LoadCase{"NoPicture", 1.0, {0, 0}, 580, {580, 0}}),
    [](const auto& info) { return info.param.name; });

struct ChoiceCase {
    const char* name;
    double ratio;
    Extent picture;
    int screenWidth, leastWidth;
    Extent window;
    const char* info;
};
class ChosenRatioOfAPicture : public ::testing::TestWithParam<ChoiceCase> {};

TEST_P(ChosenRatioOfAPicture, GivesTheWindowItsSizeAndTellsWhereItCannot) {
    const ChoiceCase& row = GetParam();
    const ChosenRatio chosen = windowForRatio(row.ratio, row.picture, row.screenWidth, row.leastWidth);
    EXPECT_EQ(chosen.window, row.window);
    EXPECT_EQ(chosen.info, row.info);
}

constexpr const char* tooBig = "The selected ratio is too big.";
constexpr const char* tooSmall = "The selected ratio is too small.";

INSTANTIATE_TEST_SUITE_P(
    PageImageSize, ChosenRatioOfAPicture,
    ::testing::Values(
        ChoiceCase{"Whole", 1.0, {1000, 1500}, 1280, 580, {1000, 1530}, ""},
        ChoiceCase{"Half", 0.5, {1000, 1500}, 1280, 0, {500, 780}, ""},
        ChoiceCase{"HalfInAWindowThatIsWider", 0.5, {1000, 1000}, 1280, 580, {580, 610}, ""},
        ChoiceCase{"HeightFollowsTheCutWidth", 0.75, {999, 2000}, 1280, 580, {749, 1529}, ""},
        ChoiceCase{"TooSmall", 0.3, {1000, 1500}, 1280, 0, {350, 555}, tooSmall},
        ChoiceCase{"JustBigEnough", 0.35, {1000, 1500}, 1280, 0, {350, 555}, ""},
        ChoiceCase{"TooBigIsThePicturesOwnSize", 1.2, {1000, 1500}, 1280, 580, {1000, 1530}, tooBig},
        ChoiceCase{"TooBigForTheScreenTakesItsHeightFromTheRatio", 1.5, {1000, 1500}, 1280, 580, {1000, 2280}, tooBig},
        ChoiceCase{"WiderThanTheScreen", 1.0, {2100, 2971}, 1280, 580, {2100, 3001}, ""},
        ChoiceCase{"AsWideAsTheScreenCutsTheHeightOfTheRatio", 0.75, {1000, 667}, 750, 580, {750, 530}, ""},
        ChoiceCase{"NoPictureYet", 0.25, {0, 0}, 1280, 580, {580, 0}, tooSmall}),
    [](const auto& info) { return info.param.name; });

} // namespace
} // namespace velmarin
