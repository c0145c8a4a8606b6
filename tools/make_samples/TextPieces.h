#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "text/Utf8.h"

namespace velmarin {

/// The code point at `at`, which is moved past it. Bytes that are not UTF-8 give U+FFFD, one at a time.
char32_t nextCodePoint(std::string_view text, std::size_t& at);

/// Without blanks, tabs and line ends on either side.
std::string_view trimmed(std::string_view text);

/// Lines without their ends; LF only.
std::vector<std::string_view> linesOf(std::string_view text);

/// Every run of blanks, tabs and line ends made one blank, none at either end.
std::string singleSpaced(std::string_view text);

/// Every `find` replaced. `find` is not empty.
void replaceEach(std::string& text, std::string_view find, std::string_view replacement);

/// Holds a word of abuse of a people; such articles of old books are no samples.
bool isAbusive(std::string_view text);

} // namespace velmarin
