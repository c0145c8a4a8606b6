#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "make_samples/Article.h"

namespace velmarin {

/// Typewriter marks made into printers' ones: curly quotation marks and apostrophes, dashes, dots.
std::string printedMarks(std::string_view text);

/// Adds `text` with its markup: {a reference} in small capitals, _stressed_ words and an author after "--" in italics.
void addRichText(std::vector<Span>& spans, std::string_view text);

/// `text` where it is no longer than `longest` bytes, otherwise cut after a whole sentence or clause, or after a word.
std::string cutShort(std::string_view text, std::size_t longest);

} // namespace velmarin
