#pragma once

#include <string>
#include <string_view>

namespace velmarin {

/// The normal form of an index line or a query: full-width letters, marks, digits and the ideographic space become
/// ASCII, katakana becomes hiragana, accents are removed, and all letters become capitals. Bytes that are not UTF-8
/// stay unchanged.
std::string mSub_MakeSearchWord(std::string_view text);

/// Appends the same to `words`.
void appendSearchWord(std::string& words, std::string_view text);

/// Direction 0 encodes the digraphs as letters of their own: "ch" becomes "cʃ", then "ll" becomes "lʎ". It ignores case
/// and writes small letters. Any other direction decodes them.
std::string mSub_Spanish(std::string_view text, int direction);

/// Folds j to i and v to u, in both cases.
std::string mSub_IJUV(std::string_view text);

/// Rewrites a numeric query by a dictionary's number format: with "000-00", "12-3" becomes "012-03". Any character
/// other than an ASCII letter, a digit or an underscore separates the fields of the query (one outside ASCII counts
/// once per byte); the first such character of the format separates the fields of the result. Fields that are not
/// numbers, and those beyond the last field of the format, stay as typed. Case and width are kept.
std::string mSub_Format(std::string_view text, std::string_view format);

/// How a dictionary's index is sorted and its numbers are written.
struct IndexOrder {
    bool SpanishMode = false;
    bool IJUVMode = false;
    std::string FormatFom;
};

/// The search word of an index line (up to its "__DLM__"): first the conversion of the mode, then the normal form.
/// `Spanish` wins over `IJUV`. The number format does not apply to the index.
std::string indexSearchWord(std::string_view line, const IndexOrder& order);

/// The search word of a query: a number by the number format, anything else in the normal form; then, unless `plain` (a
/// search in list mode), the conversion of the mode.
std::string querySearchWord(std::string_view query, const IndexOrder& order, bool plain = false);

} // namespace velmarin
