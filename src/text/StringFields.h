#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmarin {

/// Without blanks, tabs and line ends on either side.
std::string_view trimmed(std::string_view text);

/// The n-th field of `text` (from 1), separated by `separator`, which is compared byte by byte; empty past the last
/// field. If the separator is empty or not found, the whole text is one field.
std::string_view NthField(std::string_view text, std::string_view separator, std::size_t n);

/// All fields of `text`, separated by `separator`; an empty separator gives one field.
std::vector<std::string> Split(std::string_view text, std::string_view separator);
std::string Join(const std::vector<std::string>& parts, std::string_view separator);

} // namespace velmarin
