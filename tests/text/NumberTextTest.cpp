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
    const struct {
        const char* reason;
        std::string text;
        double value;
    } rows[] = {
        {"empty", "", 0},
        {"fraction", "2.75", 2.75},
        {"no whole part", ".5", 0.5},
        {"blanks and a tab in front", " \t-4", -4},
        {"plus", "+6", 6},
        {"sign alone", "-", 0},
        {"blank after the sign", "- 5", 0},
        {"point alone", ".", 0},
        {"ends at a letter", "25%", 25},
        {"no exponent", "1e9", 1},
        {"not hexadecimal", "0x10", 0},
        {"infinity is a word", "inf", 0},
        {"full-width digits are none", "１２", 0},
        {"NUL ends it", std::string("1\0002", 3), 1},
        {"too large", std::string(400, '9'), kLargest},
        {"too small", "0." + std::string(400, '0') + "1", 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CDbl(row.text), row.value) << row.reason;
}

TEST(ToInt32, CutsOffTheFractionAndHoldsTheRange) {
    const std::pair<double, std::int32_t> rows[] = {
        {2.9, 2}, {-2.9, -2}, {2147483648.0, 2147483647}, {-1e300, -2147483647 - 1}, {kNotANumber, 0}};
    for (const auto& [value, whole] : rows)
        EXPECT_EQ(toInt32(value), whole) << value;
}

TEST(Format, WritesANumberByItsPicture) {
    const struct {
        const char* reason;
        double value;
        std::string picture, text;
    } rows[] = {
        {"negative", -7, "000", "-007"},
        {"more digits than places", -12345, "000", "-12345"},
        {"hundreds are not grouped", 123, "#,##0", "123"},
        {"no minus before zero", -0.2, "0", "0"},
        {"half away from zero", 2.5, "0", "3"},
        {"negative half away from zero", -2.5, "0", "-3"},
        {"half in decimal digits", 2.675, "0.00", "2.68"},
        {"carry from zero", 0.5, "#", "1"},
        {"digits where significant", 7, "##0", "7"},
        {"nothing significant", 0, "#", ""},
        {"zero before a number sign", 7, "0##", "007"},
        {"decimals where significant", 1.5, "0.0##", "1.5"},
        {"the point disappears with its decimals", 5, "0.##", "5"},
        {"inner zero stays", 1.05, "0.##", "1.05"},
        {"no whole places", 0.25, ".00", ".25"},
        {"whole digits without places", 12.5, ".00", "12.50"},
        {"thousands", 1234567, "#,##0", "1,234,567"},
        {"thousands with zeros", 5, "0,000", "0,005"},
        {"comma outside the digits is kept", 12, "0,", "12,"},
        {"separator between digits", 1234, "000-00", "012-34"},
        {"letters around", 3, "No 00 a", "No 03 a"},
        {"comma before the digits is kept", 12, "a,0", "a,12"},
        {"point at the end", 3, "0.", "3."},
        {"no digits", 3, "abc", "abc"},
        {"no picture, fraction", -0.125, "", "-0.125"},
        {"no picture, negative zero", -0.0, "", "0"},
        {"no exponent", 1e21, "0", "1000000000000000000000"},
        {"not a number", kNotANumber, "00", "00"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Format(row.value, row.picture), row.text) << row.reason;
    EXPECT_EQ(Format(kInfinite, "0"), Format(kLargest, "0"));
    EXPECT_EQ(Format(5e-324, "").size(), 326u);
}

} // namespace
} // namespace velmarin
