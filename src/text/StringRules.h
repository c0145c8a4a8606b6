#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// The upper-case form of `text` (UTF-8): replaces each code point by its simple capital (Unicode, one to one; ß by ẞ)
/// and keeps bytes that are not UTF-8. Uppercase(Uppercase(s)) == Uppercase(s) for every s.
std::string Uppercase(std::string_view text);

/// The program's order of strings: code-point order of the upper-case forms. Returns less than, equal to or greater
/// than 0.
int compareStrings(std::string_view a, std::string_view b);

/// Equal, ignoring case.
bool equalStrings(std::string_view a, std::string_view b);

/// The order of listings: `compareStrings`, then code-point order.
struct ListingOrder {
    bool operator()(std::string_view a, std::string_view b) const;
};

/// Two file names have the same folded form if they are equal when case and Unicode composition are ignored.
std::string foldedFileName(std::string_view name);

/// `text` in Unicode normalisation form C (composed). Bytes that are not UTF-8 stay unchanged.
std::string composedForm(std::string_view text);

/// Whether `text` is well-formed UTF-8.
bool isValidUtf8(std::string_view text);

/// `text` with each byte outside a well-formed sequence replaced by U+FFFD.
std::string toValidUtf8(std::string_view text);

/// The n-th field of `text` (from 1), separated by `separator`, which is compared byte by byte; empty past the last
/// field. If the separator is empty or not found, the whole text is one field.
std::string_view NthField(std::string_view text, std::string_view separator, std::size_t n);

/// All fields of `text`, separated by `separator`; an empty separator gives one field.
std::vector<std::string> Split(std::string_view text, std::string_view separator);
std::string Join(const std::vector<std::string>& parts, std::string_view separator);

/// The position, in bytes from 1, of the first `find` in `text` at or after `start`, ignoring case; 0 if there is none
/// or `find` is empty. It compares whole characters: a lone continuation byte is not found inside a character.
std::size_t InStr(std::size_t start, std::string_view text, std::string_view find);

/// Replaces every `find` from left to right; does not search in what it inserted. ReplaceAll ignores case, ReplaceAllB
/// compares bytes. An empty `find` replaces nothing.
std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement);
std::string ReplaceAllB(std::string_view text, std::string_view find, std::string_view replacement);

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
