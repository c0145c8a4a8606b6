#pragma once

#include <string>

namespace velmarin::test {

/// A PNG of a page of a dictionary, 8 bits, as if scanned at 300 dpi: guide words, a number between them, a rule, and
/// two columns of text. Empty parts are left out.
std::string printedPage(const std::string& first, const std::string& number, const std::string& last);

} // namespace velmarin::test
