#pragma once

#include <string>
#include <string_view>

namespace velmarin {

/// Whether a character is a Greek accent or breathing that stands alone, or another mark of Greek that is no letter.
bool isGreekMark(char32_t c);

/// A reading with Greek letters as a book prints it: without accents that stand alone, with "θ" for "ϑ" and the like,
/// and with Greek letters for the Latin ones that look like them. Other texts stay unchanged.
std::string plainGreek(std::string_view text);

} // namespace velmarin
