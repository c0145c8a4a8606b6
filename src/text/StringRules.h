#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// The upper-case form of `text` (UTF-8): every code point by its simple capital (Unicode, one to one; ß by ẞ), bytes
/// that are not UTF-8 as they stand. Uppercase(Uppercase(s)) == Uppercase(s) for every s.
std::string Uppercase(std::string_view text);

/// The system's order of strings: code-point order of the upper-case forms. Less than, equal to or greater than 0.
int compareStrings(std::string_view a, std::string_view b);

/// Equal but for case.
bool equalStrings(std::string_view a, std::string_view b);

/// What listings are sorted by: `compareStrings`, and where that finds no difference code-point order.
struct ListingOrder {
    bool operator()(std::string_view a, std::string_view b) const;
};

/// The form in which two file names are one to a file system that ignores case and Unicode composition.
std::string foldedFileName(std::string_view name);

/// `text` in Unicode normalisation form C, in which a letter and its combining marks are one character where there is
/// one. Bytes that are not UTF-8 stay as they are.
std::string composedForm(std::string_view text);

/// True where `text` is well-formed UTF-8.
bool isValidUtf8(std::string_view text);

/// `text` with every byte that belongs to no well-formed sequence replaced by U+FFFD.
std::string toValidUtf8(std::string_view text);

/// The n-th field of `text` (from 1) at `separator`, byte by byte; empty past the last field. A text without the
/// separator is one field, and so is any text where the separator is empty.
std::string_view NthField(std::string_view text, std::string_view separator, std::size_t n);

/// All fields of `text` at `separator`; an empty separator gives one field.
std::vector<std::string> Split(std::string_view text, std::string_view separator);
std::string Join(const std::vector<std::string>& parts, std::string_view separator);

/// Position from 1 (in bytes) of the first `find` in `text` at or after `start`, case ignored; 0 where there is none or
/// `find` is empty. Whole characters are compared, so that a lone continuation byte is not found inside a character.
std::size_t InStr(std::size_t start, std::string_view text, std::string_view find);

/// Every `find` replaced, left to right, not looking again at what was put in. ReplaceAll ignores case, ReplaceAllB
/// compares bytes. An empty `find` replaces nothing.
std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement);
std::string ReplaceAllB(std::string_view text, std::string_view find, std::string_view replacement);

/// The decimal number at the start of `text` (blanks, a sign, ASCII digits, a point), 0 where there is none. Never
/// infinite, and independent of the locale.
double CDbl(std::string_view text);

/// A Double as Int32: truncated, held to the range of Int32; NaN gives 0.
std::int32_t toInt32(double value);

/// `value` by the picture `spec`: "0" a digit that is always written, "#" a digit written where it is significant, "."
/// the decimal point, "," between digits of the whole part groups of thousands, anything else as it stands.
/// Rounded half away from zero to the picture's decimals, from the shortest decimal form of the number; whole digits
/// beyond the picture are never cut. A minus sign stands in front of everything, none before a zero. The point goes
/// where all its decimals do. A picture without digits is written as it stands; an empty one writes the number plainly.
/// NaN counts as 0, infinity as the largest number.
std::string Format(double value, std::string_view spec);

/// The decimal text of an integer.
std::string Str(std::int64_t value);

} // namespace velmarin
