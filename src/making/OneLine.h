#pragma once

#include <string>

namespace velmarin {

/// The text with a blank for each control character, such as a line end or TAB, which would break a line of a file.
std::string inOneLine(std::string text);

} // namespace velmarin
