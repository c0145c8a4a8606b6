#pragma once

#include "scan/PageText.h"

#include <optional>
#include <string_view>

namespace velmarin {

/// The hidden text of a DjVu page as `djvused -e print-txt` writes it: an expression (zone left bottom right top ...)
/// of zones, innermost of which are words or characters, with y counted from the bottom of the page. Lines without
/// words are divided at their blanks. nullopt if it has no line.
std::optional<PageText> readDjvuText(std::string_view expression);

} // namespace velmarin
