#include "text/NumberText.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace velmarin {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kInfinite = std::numeric_limits<double>::infinity();
const double kNotANumber = std::nan("");

TEST(CDbl, ReadsTheNumberAtTheStart) {
    for (const char* none : {"", "-", "- 5", ".", "0x10", "inf", "１２"})
        EXPECT_EQ(CDbl(none), 0) << none;
    const std::pair<std::string, double> rows[] = {
        {"2.75", 2.75},
        {".5", 0.5},
        {" \t-4", -4},
        {"+6%", 6},
        {"1e9", 1},
        {std::string("1\0002", 3), 1},
        {std::string(400, '9'), kLargest},
        {"0." + std::string(400, '0') + "1", 0},
    };
    for (const auto& [text, value] : rows)
        EXPECT_EQ(CDbl(text), value) << text;
}

TEST(ToInt32, CutsOffTheFractionAndHoldsTheRange) {
    const std::pair<double, std::int32_t> rows[] = {
        {2.9, 2}, {-2.9, -2}, {2147483648.0, 2147483647}, {-1e300, -2147483647 - 1}, {kNotANumber, 0}};
    for (const auto& [value, whole] : rows)
        EXPECT_EQ(toInt32(value), whole) << value;
}

TEST(Format, WritesNumbersByAPicture) {
    const struct {
        const char* reason;
        std::string picture;
        std::vector<double> values;
        std::string texts;
    } rows[] = {
        {"at least three digits", "000", {-7, -12345}, "-007|-12345|"},
        {"half away from zero, no minus before zero", "0", {2.5, -2.5, -0.2}, "3|-3|0|"},
        {"no exponent", "0", {1e21}, "1000000000000000000000|"},
        {"half in decimal digits", "0.00", {2.675}, "2.68|"},
        {"carry from zero, nothing significant", "#", {0.5, 0}, "1||"},
        {"digits where significant", "##0", {7}, "7|"},
        {"zero before a number sign", "0##", {7}, "007|"},
        {"decimals where significant", "0.0##", {1.5}, "1.5|"},
        {"the point disappears with its decimals", "0.##", {5, 1.05}, "5|1.05|"},
        {"no whole places", ".00", {0.25, 12.5}, ".25|12.50|"},
        {"thousands", "#,##0", {123, 1234567}, "123|1,234,567|"},
        {"thousands with zeros", "0,000", {5}, "0,005|"},
        {"comma after the digits", "0,", {12}, "12,|"},
        {"comma before the digits", "a,0", {12}, "a,12|"},
        {"separator between digits", "000-00", {1234}, "012-34|"},
        {"letters around", "No 00 a", {3}, "No 03 a|"},
        {"point at the end", "0.", {3}, "3.|"},
        {"no digits", "abc", {3}, "abc|"},
        {"no picture", "", {-0.125, -0.0}, "-0.125|0|"},
        {"not a number", "00", {kNotANumber}, "00|"},
    };
    for (const auto& row : rows) {
        std::string texts;
        for (const double value : row.values)
            texts += Format(value, row.picture) + "|";
        EXPECT_EQ(texts, row.texts) << row.reason;
    }
    EXPECT_EQ(Format(kInfinite, "0"), Format(kLargest, "0"));
    EXPECT_EQ(Format(5e-324, "").size(), 326u);
}

} // namespace
} // namespace velmarin
