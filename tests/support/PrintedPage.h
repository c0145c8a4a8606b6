#pragma once

#include <string>

namespace velmarin::test {

/// A 1-bit PNG of a page of a dictionary, 1200 by 1000 pixels as if scanned at 300 dpi: guide words, a number between
/// them, a rule, and two columns of text. With `scale`, smaller.
std::string printedPage(const std::string& first, const std::string& number, const std::string& last, float scale = 1);

} // namespace velmarin::test
