#include "view/PageImageSize.h"

#include <gtest/gtest.h>

#include <string>

namespace velmarin {

namespace {

TEST(PageImageSize, TheRatioTextIsAPercentage) {
    const std::pair<const char*, double> cases[] = {{"25", 0.25}, {"150", 1.5}, {"000", 1.0},
                                                    {"", 1.0},    {"abc", 1.0}, {"30%", 0.3}};
    for (const auto& [text, ratio] : cases)
        EXPECT_EQ(ratioOfText(text), ratio) << text;
}

TEST(PageImageSize, ALoadedPictureGivesTheWindowItsSize) {
    const struct {
        const char* name;
        double ratio;
        Extent picture;
        int leastWidth;
        Extent window;
    } cases[] = {
        {"a wider window keeps the height of the ratio", 0.5, {1000, 1500}, 580, {580, 780}},
        {"too narrow: the height follows the least width", 0.3, {1000, 1500}, 0, {350, 555}},
        {"too narrow: the height follows the window's width", 0.3, {1000, 1500}, 580, {580, 899}},
        {"sides are truncated", 0.75, {999, 667}, 0, {749, 530}},
        {"long strip", 1.0, {1, 4'000'000}, 580, {580, 2147483647}},
        {"negative ratio", -0.05, {1000, 1000}, 580, {580, 610}},
        {"no picture", 1.0, {0, 0}, 580, {580, 0}},
    };
    for (const auto& row : cases)
        EXPECT_EQ(windowForPicture(row.ratio, row.picture, row.leastWidth), row.window) << row.name;
}

TEST(PageImageSize, AChosenRatioGivesTheWindowItsSizeAndSaysWhereItCannot) {
    const std::string tooBig = "The selected ratio is too big.", tooSmall = "The selected ratio is too small.";
    const struct {
        const char* name;
        double ratio;
        Extent picture;
        int screenWidth, leastWidth;
        Extent window;
        std::string info;
    } cases[] = {
        {"the height follows the truncated width", 0.75, {999, 2000}, 1280, 580, {749, 1529}, ""},
        {"too small", 0.3, {1000, 1500}, 1280, 0, {350, 555}, tooSmall},
        {"just large enough", 0.35, {1000, 1500}, 1280, 0, {350, 555}, ""},
        {"too large: the picture's own size", 1.2, {1000, 1500}, 1280, 580, {1000, 1530}, tooBig},
        {"too large for the screen: the height of the ratio", 1.5, {1000, 1500}, 1280, 580, {1000, 2280}, tooBig},
        {"wider than the screen", 1.0, {2100, 2971}, 1280, 580, {2100, 3001}, ""},
        {"as wide as the screen: the height is truncated", 0.75, {1000, 667}, 750, 580, {750, 530}, ""},
        {"no picture yet", 0.25, {0, 0}, 1280, 580, {580, 0}, tooSmall},
    };
    for (const auto& row : cases) {
        const ChosenRatio chosen = windowForRatio(row.ratio, row.picture, row.screenWidth, row.leastWidth);
        EXPECT_EQ(chosen.window, row.window) << row.name;
        EXPECT_EQ(chosen.info, row.info) << row.name;
    }
}

} // namespace
} // namespace velmarin
