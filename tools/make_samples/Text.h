#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "text/RegExMBS.h"

namespace velmarin {

/// A pattern that is known to be right.
class Pattern : public RegExMBS {
  public:
    explicit Pattern(std::string_view pattern) { Compile(pattern); }
    bool finds(std::string_view text) { return Execute(std::string(text), 1) > 0; }
    std::string removedFrom(std::string_view text) const { return ReplaceAll(text, ""); }
};

/// The code point at `at`, which is moved past it. Bytes that are not UTF-8 give U+FFFD, one at a time.
char32_t nextCodePoint(std::string_view text, std::size_t& at);
/// Without blanks, tabs and line ends on either side.
std::string_view trimmed(std::string_view text);
/// Every run of blanks, tabs and line ends made one blank, none at either end.
std::string singleSpaced(std::string_view text);
/// Lines without their ends; LF only.
std::vector<std::string_view> linesOf(std::string_view text);
std::size_t indentOf(std::string_view line);

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
