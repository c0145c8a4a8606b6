#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velmarin {

// Text made into Pango's markup. What is not UTF-8 in it becomes U+FFFD.

std::string escaped(std::string_view text);
std::string bold(std::string_view text);
std::string italic(std::string_view text);
std::string smallCapitals(std::string_view text);
std::string inRed(std::string_view markup);

/// Typewriter marks made into printers' ones: curly quotation marks and apostrophes, dashes, dots.
std::string printedMarks(std::string_view text);

/// `text` with marks of its own as markup: {a reference} in small capitals, _stressed_ words and an author after "--"
/// in italics.
std::string richText(std::string_view text);

/// `text` where it is no longer than `longest` bytes, otherwise cut after a whole sentence or clause, or after a word.
std::string cutShort(std::string_view text, std::size_t longest);

} // namespace velmarin
