#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "text/RegExMBS.h"

namespace velmarin {

/// A pattern that is known to be correct.
class Pattern : public RegExMBS {
  public:
    explicit Pattern(std::string_view pattern) { Compile(pattern); }
    bool finds(std::string_view text) { return Execute(std::string(text), 1) > 0; }
    std::string removedFrom(std::string_view text) const { return ReplaceAll(text, ""); }
};

/// Replaces every run of blanks, tabs and line ends by one blank and trims the result.
std::string singleSpaced(std::string_view text);
/// Lines without their ends, as LineReader takes them.
std::vector<std::string> linesOf(std::string_view text);
/// Groups of lines that blank lines separate; the first is empty if the text begins with a blank line.
std::vector<std::vector<std::string>> blocksOf(const std::vector<std::string>& lines);
std::size_t indentOf(std::string_view line);

// Pango markup of plain text. Bytes that are not UTF-8 become U+FFFD.
std::string escaped(std::string_view text);
std::string bold(std::string_view text);
std::string italic(std::string_view text);
std::string smallCapitals(std::string_view text);
/// Takes markup, not plain text.
std::string inRed(std::string_view markup);

/// Replaces typewriter quotation marks, apostrophes, dashes and dots by typographic ones.
std::string printedMarks(std::string_view text);
/// Pango markup of text with marks of its own: {a reference} becomes small capitals; _stressed_ words and an author
/// after "--" become italics.
std::string richText(std::string_view text);

} // namespace velmarin
