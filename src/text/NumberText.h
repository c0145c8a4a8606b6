#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velmarin {

/// The decimal number at the start of `text` (blanks, a sign, ASCII digits, a point); 0 if there is none. Never
/// infinite, and independent of the locale.
double CDbl(std::string_view text);

/// Truncates and clamps `value` to the range of Int32; NaN gives 0.
std::int32_t toInt32(double value);

/// Writes `value` by the picture `spec`: "0" is a digit that is always written, "#" a digit that is written if it is
/// significant, "." the decimal point, and "," between digits of the whole part groups thousands; other characters are
/// copied. The number is rounded half away from zero to the picture's decimals, starting from its shortest decimal
/// form. Whole digits beyond the picture are kept. A minus sign comes first; zero has none. The point is left out if no
/// decimal follows. A picture without digits is copied; an empty one gives the plain number. NaN counts as 0, infinity
/// as the largest number.
std::string Format(double value, std::string_view spec);

/// The decimal text of an integer.
std::string Str(std::int64_t value);

} // namespace velmarin
