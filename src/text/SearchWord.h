#pragma once

#include <string>
#include <string_view>

namespace velmarin {

/// The common normal form of an index line or a query: full-width letters, marks, digits and the ideographic space to
/// ASCII, katakana to hiragana, accents off, capitals. Pure; bytes that are not UTF-8 pass unchanged.
std::string mSub_MakeSearchWord(std::string_view text);

/// The same, written at the end of `words`.
void appendSearchWord(std::string& words, std::string_view text);

/// Direction 0 makes letters of their own of the digraphs: "ch" to "cʃ", then "ll" to "lʎ", whatever their case, the
/// replacement in small letters. Any other direction takes that back.
std::string mSub_Spanish(std::string_view text, int direction);

/// Folds j to i and v to u, small and capital each.
std::string mSub_IJUV(std::string_view text);

/// Rewrites a numeric query after a dictionary's number format: by "000-00" "12-3" becomes "012-03". Any character that
/// is no ASCII letter, digit or underscore separates the fields of the query (one beyond ASCII counts once for each of
/// its bytes); the format's first such character stands between the fields of the result. Fields that are no number,
/// and fields beyond the format's, stay as typed. No case or width is folded.
std::string mSub_Format(std::string_view text, std::string_view format);

/// Which order a dictionary's index stands in, and how its numbers are written.
struct IndexOrder {
    bool SpanishMode = false;
    bool IJUVMode = false;
    std::string FormatFom;
};

/// The search word of an index line (up to its "__DLM__"): the mode first, the common form second. `Spanish` wins over
/// `IJUV`. The number format never touches the index.
std::string indexSearchWord(std::string_view line, const IndexOrder& order);

/// The search word of a query: the number format where the query is a number, else the common form; then, unless
/// `plain` (a search in list mode), the mode.
std::string querySearchWord(std::string_view query, const IndexOrder& order, bool plain = false);

} // namespace velmarin
