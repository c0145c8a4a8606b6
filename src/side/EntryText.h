#pragma once

#include <string>
#include <string_view>

namespace velmarin {

/// An entry of a dictionary whose lines were broken to fit a terminal, with its paragraphs whole again, so that they
/// fill a text of any width. A break is taken for one of those where the first word of the next line, which has to be
/// indented, would not have fitted in the entry's longest line; breaks before what begins a sense, a quotation or a
/// note stay. Entries whose longest line is no line of a terminal's are left alone.
std::string unwrapped(std::string_view entry);

} // namespace velmarin
