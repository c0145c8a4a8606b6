#pragma once

#include <string>
#include <string_view>

namespace velmarin {

/// The capital of a unit of UTF-8 (text/Utf8.h). A byte that is not UTF-8 stays unchanged.
char32_t capitalOf(char32_t unit);

/// The upper-case form of `text` (UTF-8): replaces each code point by its simple capital (Unicode, one to one; ß by ẞ)
/// and keeps bytes that are not UTF-8. Uppercase(Uppercase(s)) == Uppercase(s) for every s.
std::string Uppercase(std::string_view text);

/// The lower-case form, letter by letter (Unicode, one to one). Keeps bytes that are not UTF-8.
std::string Lowercase(std::string_view text);

/// The program's order of strings: code-point order of the upper-case forms. Returns less than, equal to or greater
/// than 0.
int compareStrings(std::string_view a, std::string_view b);

/// Equal, ignoring case.
bool equalStrings(std::string_view a, std::string_view b);

/// The order of listings: `compareStrings`, then code-point order.
struct ListingOrder {
    bool operator()(std::string_view a, std::string_view b) const;
};

} // namespace velmarin
